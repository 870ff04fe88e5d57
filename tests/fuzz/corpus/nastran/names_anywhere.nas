 $GRID         9       0     1.0     2.0     3.0
X             20       1    CBAR    GRID
CTUB-3         7       1      11      12
PTUB-3         1       5    6.75
TITLE = CHEXA PSOLID
