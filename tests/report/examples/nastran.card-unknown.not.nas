SOL 101
CEND
TITLE = BRACKET
BEGIN BULK
GRID           1              0.      0.      0.
GRID           2              1.      0.      0.
CROD           1       1       1       2
$MAT1
ENDDATA
