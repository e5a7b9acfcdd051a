~Version Information Section
VERS.           2.0     :   CWLS log ASCII Standard -VERSION 2.0
WRAP.           NO      :   One line per depth step
~Well Information Section
#MNEM.UNIT      VALUE/NAME      DESCRIPTION
#--------     --------------   ---------------------
STRT.M             3.20         :START DEPTH
STOP.M             3.35         :STOP DEPTH
STEP.M             0.05         :STEP
NULL.           -999.25         :NULL
COMP.                                   :COMPANY
WELL.   H                               :WELL
FLD .                                   :FIELD
LOC .                                   :LOCATION
PROV.                                   :PROVINCE
SRVC.                                   :SERVICE COMPANY
DATE.   23-Nov-2026                     :LOG DATE
UWI .   1234567890                      :UNIQUE WELL ID
~CURVE INFORMATION
#MNEM.UNIT                               CURVE DESCRIPTION
#-------------                           -----------------
Depth.M                                :  1   Depth
Speed.M/min                            :  2   Speed
Res 8 inch.OHM-M                       :  3   Res 8 inch
Res 16 inch.OHM-M                      :  4   Res 16 inch
Res 32 inch.OHM-M                      :  5   Res 32 inch
Res 64 inch.OHM-M                      :  6   Res 64 inch
Gamma.API                              :  7   Gamma
SP.MV                                  :  8   SP
Reference.%                            :  9   Reference
#
# NOTE : No data channels have been filtered.  Data is raw data.
#
~Parameter Information Section
#MNEM.UNIT         VALUE            DESCRIPTION
#-----------     --------------   ---------------------
HOLEAZIM.DEG                       : Hole azimuth
HOLEINCL.DEG                       : Hole inclination
~A     Depth       Speed  Res 8 inch Res 16 inch Res 32 inch Res 64 inch       Gamma          SP   Reference
        3.20       32.72     1216.69     1312.99     1282.13     1342.88       33.00     2521.01      100.00
        3.25       32.72     1302.65     1353.18     1296.22     1301.03       22.00     2493.77      100.00
        3.30       32.72     1192.57     1350.14     1250.60     1310.94       55.00     2518.59      100.00
        3.35       32.72     1186.17     1257.64     1356.50     1219.51       22.00     2511.36      100.00
