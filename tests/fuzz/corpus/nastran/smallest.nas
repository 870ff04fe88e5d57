GRID           1       0      0.      0.      0.
CTETRA         1       1       1       1       1       1
