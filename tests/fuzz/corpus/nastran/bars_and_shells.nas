GRID           1       0      0.      0.      0.
CBAR           1       1       1       1      1.      0.      0.
CBEAM          2       2       1       1
CROD           3       3       1       1
CTUBE          4       4       1       1
CQUAD4         5       5       1       1       1       1
CTRIA3         6       5       1       1       1
CSHEAR         7       6       1       1       1       1
PBARL          1       1             ROD
+             5.
PBEAM          2       2    320.     1.0     2.0     3.0     4.0
PROD           3       3    1.E5
PTUBE          4       4    6.75     1.0
PSHELL         5       5     2.9
PSHEAR         6       6    -2.9
