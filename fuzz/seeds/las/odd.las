~Version
VERS. 2.0 : v
WRAP. NO : w
~Well
STRT.fathom 1 : s
STOP.fathom 2 : s
STEP.fathom 1 : s
NULL. -999.25 : n
COMP. A:B : c
WELL. H1 : w
DATE. 1 : d
~Curve
DEPT.M : 1
A.CPS : 2
B. : 3
# NOTE : Data channels have been filtered as below
#        A - 5 pt
~A
# comment
1 -999.25-1.5
2 (null) 1.5D+03
-999.25 1,5 2,5
3
x 1 2
4 1 2 3
~Other
5 1
