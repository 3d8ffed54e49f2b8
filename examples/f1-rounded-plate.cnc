Plate of 3 x 2 inch with a rounded rim and an eye in its middle, aluminium. Zero point: left front corner, top face. Tool 1: end mill of 1/4 inch. Arcs of a quarter stand alone, smaller ones need an M99 with their centre.
%
    N` G`  X  `  Y `   Z ` F  
    00M06D  125S1800    00T 01 Tool 1: radius 0.125
    01 92-  300- 300  1000     
    02M03                      
    03 00-  300 1000  1000     
    04 00-  300 1000-  100     Down beside the plate
    05 01   125 1000-  100  60 To the rim
    06 01   125 1500-  100  60 
    07 02   500 1875-  100  60 Corner 0.250 and the tool's radius 0.125
    08 01  2500 1875-  100  60 
    09 02  2875 1500-  100  60 
    10 01  2875  500-  100  60 
    11 02  2500  125-  100  60 
    12 01   500  125-  100  60 
    13 02   125  500-  100  60 
    14 01   125 1000-  100  60 
    15 00-  300 1000-  100     
    16 00-  300 1000   200     
    17 00   900 1000   200     Left corner of the eye
    18 01   900 1000-   40  20 
    19 02  1500 1200-   40  50 Upper lid up to its highest point
    20M99I  600J 800K   00     cmdRADIUS centre 0.600 right, 0.800 down
    21 02  2100 1000-   40  50 
    22M99I   00J1000K   00     
    23 02  1500  800-   40  50 Lower lid
    24M99I  600J 800K   00     cmdNORADIUS
    25 02   900 1000-   40  50 
    26M99I   00J1000K   00     
    27 01   900 1000-   80  20 Deeper, and round the other way
    28 03  1500  800-   80  50 
    29M99I  600J 800K   00     
    30 03  2100 1000-   80  50 
    31M99I   00J1000K   00     
    32 03  1500 1200-   80  50 
    33M99I  600J 800K   00     
    34 03   900 1000-   80  50 
    35M99I   00J1000K   00     
    36 00   900 1000  1000     
    37 00-  300- 300  1000     
    38M05                      
    39M30                      
   "I
