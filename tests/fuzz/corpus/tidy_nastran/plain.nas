GRID           1               0       0       0
CTETRA         1       1       1       2       3       4       5       6+T
+T             7       8       9      10
PSOLID         1       1       0
