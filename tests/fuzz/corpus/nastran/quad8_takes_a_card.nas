GRID           1       0      0.      0.      0.
CTETRA         1       1       1       1       1       1
CQUAD8         5       1       1       2       3       4
GRID           9
$ CHEXA
GRID           8
