$ solids
SOL 101
CEND
BEGIN BULK
PARAM,POST,-1
GRID           1       0      0.      0.      0.
GRID           2            10.0   1.5-3    -2.5
GRID           3       0-1.234-512345.67  1.0E-2
PSOLID         1       1       0
PSOLID         2       1       0
MAT1           1 210000.              .3  7.85-9
CTETRA         1       1       1       2       3       1+A
+A             1       2       3       1
CPENTA         2       1       1       2       3       1       2       3
CHEXA          3       2       1       2       3       1       2       3+EL1
+EL1           1       2
ENDDATA
