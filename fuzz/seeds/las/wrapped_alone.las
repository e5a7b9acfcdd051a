~V
VERS. 2.0 : v
WRAP. YES : w
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
1
1
20
2
2
3
3
22
4
4
23
5
5
-999.25
