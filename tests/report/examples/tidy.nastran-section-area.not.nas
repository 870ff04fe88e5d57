BEGIN BULK
GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
GRID           3              0.      1.      0.
GRID           4              0.      0.      1.
CBAR           1       1       1       2      0.      0.      1.
PBAR           1       1      4.
ENDDATA
