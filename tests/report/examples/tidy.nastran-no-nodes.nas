BEGIN BULK
CTETRA         1       1       1       2       3       4
PSOLID         1       1
ENDDATA
