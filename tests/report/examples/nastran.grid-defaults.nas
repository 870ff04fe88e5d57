GRDSET                 5
GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
CROD           1       1       1       2
