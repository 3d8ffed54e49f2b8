Chess pawn, bar of 28 mm, brass. Zero point: tip of the head. Tool 1: right-hand turning tool, tool 2: pointed tool. The contour is a subroutine in incremental mode: it is cut three times, each time 1.5 mm deeper.
%
    N` G`   X `    Z `  F`  H 
    00M06    00     00T 01      Tool 1, right-hand turning tool
    01 92  4000   1000          
    02M03                       
    03 00  2900    100          
    04 84  2700 - 2980  90  60  @  (2x)Longitudinal Cycle
    05 84  1760 - 2240  90  90  @  (7x)Longitudinal Cycle
    06 00  1800    100          
    07 84  1240 -  270  90  90  @  (4x)Longitudinal Cycle
    08 84   800 -   90  90  90  @  (6x)Longitudinal Cycle
    09 00  4000   1000          
    10M06 -  45    130T 02      Tool 2, pointed tool
    11 00   600    100          3 mm outside the contour
    12 91                       Incremental: X as the slide goes
    13 25             L 22      First cut
    14 00 - 150     00          
    15 25             L 22      Second cut
    16 00 - 150     00          
    17 25             L 22      Finishing cut
    18 90                       Absolute again
    19 00  4000   1000          
    20M05                       
    21M30                       
    22 01    00 -  100  60      Contour of the pawn
    23 03   800 -  800  60      Front of the head, a quadrant
    24 03 - 350 -  661  60      Back of the head, less than a quadrant:
    25M99 I 800 K   00          cmdRADIUS its centre is 8 mm inside
    26 02   400 -  800  60      Body:
    27M99 I1000 K   00          cmdNORADIUS its centre is 10 mm outside
    28 01   250     00  60      Top of the foot
    29 03   200 -  200  60      Edge of the foot
    30 01    00 -  539  60      Foot
    31 01   150     00  60      Out of the bar
    32 00    00   3100          Back in front of the tip
    33 00 -1450     00          All ways add up to 0
    34M17                       
   M
