GRID           1                      1.    1.-4
CBAR           9       1       1       2
