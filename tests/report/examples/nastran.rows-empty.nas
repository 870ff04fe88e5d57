GRID           1              0.      0.      0.
GRID           3              1.      0.      0.
CROD           1       1       1       3
