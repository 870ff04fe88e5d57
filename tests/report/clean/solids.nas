$ A hexahedron, two tetrahedra, a wedge and a tube in fixed fields
CEND
BEGIN BULK
GRID           1              0.      0.      0.
GRID           2             10.      0.      0.
GRID           3             10.     10.      0.
GRID           4              0.     10.      0.
GRID           5              0.      0.      5.
GRID           6             10.      0.      5.
GRID           7             10.     10.      5.
GRID           8              0.     10.      5.
GRID           9              5.      5.     8.5
GRID          10             15.      5.      0.
GRID          11             15.      5.      5.
$ Zeros lead the number of the hexahedron: the reader would lose its eighth node without them
CHEXA   00000001       1       1       2       3       4       5       6
               7       8
CTETRA         2       1       5       6       7       9
CTETRA         3       1       5       7       8       9
CPENTA         4       1       2      10       3       6      11       7
CTUBE          5       2       9      11
PSOLID         1       1       0
PTUBE          2       1      5.
ENDDATA
