SOL 101
CEND
BEGIN BULK
GRDSET,,5
CORD2R,5,,1.,0.,0.,1.,0.,1.
,2.,0.,0.
GRID,1,0,.5,1.5E+3,-2.5D-3
GRID*   2                              5 1.234E+001            90.0
*                    3.0
CHEXA,7,3,1,2,3,4,5,6,+C1
+C1,7,8
PSOLID,3,1,0
ENDDATA
