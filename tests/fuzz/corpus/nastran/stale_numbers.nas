GRID           1       0      0.      0.      0.
PROD           1       1      4.
PBAR           2       1       x
PTUBE          3       x
CBAR           x
GRID           2       0     1.0     abc
CTETRA         1       1       1       1       1       1
