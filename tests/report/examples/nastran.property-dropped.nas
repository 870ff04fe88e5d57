GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
CROD           1       1       1       2
PSOLID         2       1
PSOLID         1       1
