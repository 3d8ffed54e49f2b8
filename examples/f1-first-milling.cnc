Step around a block of 80 x 50 mm and a groove in its middle, aluminium. Zero point: left front corner, top face. Tool 1: end mill of 10 mm. All X and Y are the centre of the tool.
%
    N` G`  X  `  Y `   Z ` F  
    00M06D  500S1500    00T 01 Tool 1: radius 5 mm, 1500 turns a minute
    01 92- 2000-2000  2000     Tool stands 20 mm off in each direction
    02M03                      Spindle on
    03 00- 1200   00  2000     In line with the front edge
    04 00- 1200   00-  300     Down beside the block
    05 01  8000   00-  300 120 Front step, 5 mm wide, 3 mm deep
    06 01  8000 5000-  300 120 Right step
    07 01    00 5000-  300 120 Rear step
    08 01    00-1200-  300 120 Left step and out of the block
    09 00    00-1200   500     Up
    10 00  2500 2500   500     Start of the groove
    11 01  2500 2500-  200  40 Plunge slowly
    12 01  5500 2500-  200 100 Groove, 10 mm wide, 2 mm deep
    13 01  2500 2500-  200 150 And back
    14 00  2500 2500  2000     
    15 00- 2000-2000  2000     Back to the start
    16M05                      Spindle off
    17M30                      End of program
   MI
