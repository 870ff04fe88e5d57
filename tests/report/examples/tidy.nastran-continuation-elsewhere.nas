BEGIN BULK
GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
GRID           3              0.      1.      0.
GRID           4              0.      0.      1.
GRID           5              1.      1.      0.
GRID           6              1.      0.      1.
GRID           7              1.      1.      1.
GRID           8              0.      1.      1.
CHEXA          1       1       1       2       5       3       4       6+A
PSOLID         1       1
+A             7       8
ENDDATA
