GRID           1       0      0.      0.      0.
CHEXA          7       1       0       0      10 0EL000 0 0 0 0 0ELEL  0
+EL1 0 0 0 0 0 00 0
