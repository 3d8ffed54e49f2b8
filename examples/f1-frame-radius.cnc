Frame of 60 x 40 mm with an opening of 40 x 20 mm, plastic sheet stuck on a board. The sizes are those of the drawing: the control adds and subtracts the radius of the tool. Any end mill up to 10 mm can be used: only D has to be changed.
%
    N` G`  X  `  Y `   Z ` F  
    00M06D  400S1500    00T 01 Tool 1: radius 4 mm
    01 92- 2000-2000  1000     Zero point: left front corner of the frame
    02M03                      
    03 91                      Incremental
    04 00    00   00-  800     2 mm above the sheet
    05 21                      Inside of the opening
    06 45                      Add the radius: stay inside
    07 00  3000 3000    00     To the corner of the opening
    08 40                      
    09 01    00   00-  500  40 
    10 48                      Sides are shorter by the radius, twice
    11 01  4000   00    00 120 
    12 01    00 2000    00 120 
    13 01- 4000   00    00 120 
    14 01    00-2000    00 120 
    15 40                      
    16 00    00   00   500     
    17 45                      
    18 00- 3000-3000    00     
    19 40                      
    20 21                      cmdNOCHECK now the outside of the frame
    21 46                      Subtract the radius: stay outside
    22 00  2000 2000    00     To the corner
    23 40                      No radius while plunging
    24 01    00   00-  500  40 Through the sheet of 3 mm
    25 47                      Sides are longer by the radius, twice
    26 01  6000   00    00 120 
    27 01    00 4000    00 120 
    28 01- 6000   00    00 120 
    29 01    00-4000    00 120 
    30 40                      
    31 00    00   00   500     
    32 46                      
    33 00- 2000-2000    00     Back to the start
    34 40                      
    35 00    00   00   800     
    36M05                      
    37M30                      
   MI
