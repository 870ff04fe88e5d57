GRID      999999
GRID           0
GRID          -1
CBAR      999999  999999
CBAR          -1      -1
PSOLID         0
