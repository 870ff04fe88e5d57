GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
CBEAM          1       1       1       2      0.      1.      0.
