GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
GRID           3              1.      1.      0.
GRID           4              0.      1.      0.
GRID           5              0.      0.      1.
GRID           6              1.      0.      1.
GRID           7              1.      1.      1.
GRID           8              0.      1.      1.
CROD           2       1       7       8
CHEXA   00000001       1       1       2       3       4       5       6
               7       8
$ nodes 7 and 8
