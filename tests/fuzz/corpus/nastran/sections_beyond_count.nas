GRID           1       0      0.      0.      0.
CTETRA         1       1       1       1       1       1
PSOLID         9       2       1
PSOLID         5      -2      1.E30
PSOLID         2  999999     nan
PROD           3       1     -4.
PSOLID         2       0
