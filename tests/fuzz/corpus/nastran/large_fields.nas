CTETRA         1       1       1       1       1       1
GRID*   1                               1.5             2.5             *A
*A      3.5
