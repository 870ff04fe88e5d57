GRID           1       0      0.      0.      0.
CTETRA         1       1       1       1       1       1
PSOLID         1       1       3