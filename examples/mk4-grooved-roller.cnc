Roller with two groups of three grooves, bar of 30 mm, plastic. Radius mode: every X is a radius. Tool 2: grooving tool of 2 mm. A subroutine for the group calls one for the groove.
%
    N` G`   X `    Z `  F`  H 
    00 21                       cmdNORENUM
    01M06    00     00T 02      Tool 2, grooving tool
    02 24                       Radius mode, before G92
    03 92  2000    500          Tool stands 20 mm off the centre
    04M03                       
    05 00  1550 -  400          First groove
    06 91                       
    07 25             L 11      First group
    08 00    00 - 1200          To the second group
    09 25             L 11      
    10 27             L 21      Jump over the subroutines
    11 25             L 17      Group: groove, step, groove, step, groove
    12 00    00 -  300          
    13 25             L 17      
    14 00    00 -  300          
    15 25             L 17      
    16M17                       Back to the main program
    17 01 - 250     00  30      Groove 2 mm deep
    18 04    50                 Half a second at the bottom
    19 00   250     00          
    20M17                       Back to the group
    21 90                       Absolute, X still a radius
    22 00  2000 - 2800          Out of the work, then back
    23 00  2000    500          
    24M05                       
    25M30                       
   M
