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
1,10.5,20
2, ,21
3 12,500 22
4,13.5,23
5,14.5
