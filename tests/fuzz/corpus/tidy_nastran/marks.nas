GRID*,1,,.5,2.,3.
CHEXA          1       1      11      12      13      14      15      16ABC
INCLUDE deck
+BC           17      18
