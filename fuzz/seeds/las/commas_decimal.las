~V
VERS. 2.0 : v
WRAP. NO : w
~W
STRT.M 1 : s
STOP.M 6 : s
STEP.M 1 : s
NULL. -999.25 : n
COMP. Acme : c
WELL. H1 : w
DATE. 1 : d
~C
DEPT.M : 1
A. : 2
B. : 3
~A
1,0 10,25 0,125
2,0 -999,25-21,125
3,0 1,5D+01 23,125
4,13,23
5,0 14,25 1,000