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
C. : 4
D. : 5
~A
1
10
20 30
40
2
11
21 31
3
12
22 32
42
4
13
23,5 33
43
