# Fluid sampler: pressure inside and outside the chamber, temperature and the position of the piston. The program
# keeps two places behind the measured channels for temperatures of its own. The second mode shows
# other units: its sensors have names, and so calibrations, of their own.

[tool]
code = K306
short_code = FS
name = Fluid sampler
maximum_current = 350

[mode 1]
name = Sampler, Celsius
kind = MUX
sensor_factors = t1,u1,f21,v1
words = 4
parameters = L100 | PA50
channel = Chamber      | KPA   | 0    | 4000  | 0 | 20000 | pressure
channel = Hydrostatic  | KPA   | 0    | 4000  | 0 | 20000 | pressure
channel = Fluid temp   | Deg C | 1000 | 11000 | 0 | 100   | temperature
channel = Piston       | %     | 0    | 4000  | 0 | 100   | flow
channel = Chamber temp | Deg C | 0    | 100   | 0 | 100
channel = Hole temp    | Deg C | 0    | 100   | 0 | 100

[mode 2]
name = Sampler, Fahrenheit
kind = MUX
sensor_factors = t1,u1,f21,v1
words = 4
parameters = L100 | PA50
channel = Chamber PSI     | PSI   | 0    | 4000  | 0  | 3000 | pressure
channel = Hydrostatic PSI | PSI   | 0    | 4000  | 0  | 3000 | pressure
channel = Fluid temp F    | Deg F | 1000 | 11000 | 32 | 212  | temperature
channel = Piston          | %     | 0    | 4000  | 0  | 100  | flow
channel = Chamber temp F  | Deg F | 32   | 212   | 32 | 212
channel = Hole temp F     | Deg F | 32   | 212   | 32 | 212
