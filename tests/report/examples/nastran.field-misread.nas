GRID           1              0.      0.      0.
GRID           2              1.5     2.5     0.
CROD           1       1       1       2
