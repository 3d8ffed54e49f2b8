Cover of 60 x 100 mm with a pocket and four reamed holes, aluminium, clamped upright for the horizontal spindle. Zero point: lower left corner, front face. Tools: 1 end mill of 10 mm, 2 centre drill, 3 drill of 7.8 mm, 4 reamer of 8 mm.
%
    N` G`  X  `  Y `   Z ` F  
    00M06D  500S1500    00T 01 Tool 1: radius 5 mm
    01 92    00   00  3000     
    02M03                      
    03M08                      Coolant on
    04 00    00   00   100     1 mm in front of the face
    05 00  1500 3500   100     Corner of the pocket and the radius
    06 91                      The cycle takes the size of the pocket
    07 72  4000 3000-  350 100 Pocket 40 x 30 mm, 2.5 mm deep
    08 72  4000 3000-  600 100 The same, 5 mm deep
    09 90                      
    10 00  1500 3500  3000     
    11M06D  150S2000-  850T 02 Tool 2, centre drill
    12 00   600 3500  3000     
    13 00   600  600  3000     
    14 00   600  600   200     
    15 82           -  150  60 Centre, with a dwell
    16 00  5400  600   200     
    17 81           -  150  60 Centre, without
    18 00  5400 9400   200     
    19 81           -  150  60 
    20 00   600 9400   200     
    21 81           -  150  60 
    22 00   600 9400  3000     
    23M06D  390S1200   450T 03 Tool 3, drill of 7.8 mm
    24 00   600 9400   200     
    25 83           - 1800  80 @  (4x)Drilling Cycle with Withdrawal
    26 00  5400 9400   200     
    27 73           - 1800  80 @  (11x)Drilling Cycle with Chip Breakage
    28 00  5400  600   200     
    29 73           - 1800  80 @  (11x)Drilling Cycle with Chip Breakage
    30 00   600  600   200     
    31 83           - 1800  80 @  (4x)Drilling Cycle with Withdrawal
    32 00   600  600  3000     
    33M06D  400S 300   700T 04 Tool 4, reamer, slowly
    34 00   600  600   200     
    35 85           - 1600  50 In and out at the same feed
    36 00  5400  600   200     
    37 89           - 1600  50 The same with a dwell
    38 00  5400 9400   200     
    39 85           - 1600  50 
    40 00   600 9400   200     
    41 89           - 1600  50 
    42 00   600 9400  3000     
    43M09                      Coolant off
    44M05                      
    45 00    00   00  3000     
    46M30                      
   M-
