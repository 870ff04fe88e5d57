BEGIN BULK
GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
GRID           3              0.      1.      0.
GRID           4              0.      0.      1.
CTETRA         1       1       1       2       3       4
PSOLID         1       1
INCLUDE
