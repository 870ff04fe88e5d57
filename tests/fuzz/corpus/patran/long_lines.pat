25       0       0       1       0       0       0       0       0
two bricks
26       0       0       1       8       1       1       0       0
01-Jan-26   12:00:00         3.0
 5       0       0       3       0       0       0       0       0
yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy
yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy
yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy
 1      10       0       2       0       0       0       0       0
 1.000000000E+00 5.000000000E-01-1.000000000E-03
1G       6       0       0  000000
 1      20       0       2       0       0       0       0       0
 2.000000000E+00 1.000000000E+00-2.000000000E-03
1G       6       0       0  000000
 1      30       0       2       0       0       0       0       0
 3.000000000E+00 1.500000000E+00-3.000000000E-03
1G       6       0       0  000000
 1      40       0       2       0       0       0       0       0
 4.000000000E+00 2.000000000E+00-4.000000000E-03
1G       6       0       0  000000
 1      50       0       2       0       0       0       0       0
 5.000000000E+00 2.500000000E+00-5.000000000E-03
1G       6       0       0  000000
 1      60       0       2       0       0       0       0       0
 6.000000000E+00 3.000000000E+00-6.000000000E-03
1G       6       0       0  000000
 1      70       0       2       0       0       0       0       0
 7.000000000E+00 3.500000000E+00-7.000000000E-03
1G       6       0       0  000000
 1      80       0       2       0       0       0       0       0
 8.000000000E+00 4.000000000E+00-8.000000000E-03
1G       6       0       0  000000
!xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
 2       1       5       2       0       0       0       0       0
       4       0       1 0.0000000E+00 0.0
      10      20      30      40                                                                                                                                                                                              
99       0       0       1       0       0       0       0       0
