Shaft end with thread M16 x 1.5, bar of 20 mm, free-cutting steel. Zero point: centre of the face. Tools: 1 right-hand turning tool, 2 grooving tool of 3 mm, 3 threading tool. The remarks with @ are the system's own.
%
    N` G`   X `    Z `  F`  H 
    00M06    00     00T 01      Tool 1, all others refer to it
    01 92  4000   2000          
    02M03                       
    03M08                       Coolant on
    04 95                       Feeds in 1/1000 mm per turn
    05 00  2100    100          
    06 84  1630 - 2490 100  80  @  (3x)Longitudinal Cycle
    07 84  1590 - 2500  80  00  @  (1x)Longitudinal Cycle
    08 00  1190    100          
    09 01  1590 -  100  80      Chamfer
    10 01  1590 - 2500  80      Outside of the thread, 15.9 mm
    11 01  2100 - 2500  80      Shoulder
    12 00  4000   2000          
    13M06 -  62    185T 02      Tool 2 with its differences to tool 1
    14 94                       Feeds in mm/min
    15 00  1700 - 2000          
    16 86  1360 - 2500  30 300  Relief groove in cuts of the tool's width
    17 01  1360 - 2000  30      Clean the bottom of the groove
    18 04   100                 1 second
    19 01  1360 - 2500  30      
    20 01  1700 - 2500 100      
    21 00  4000   2000          
    22M06 -  30     95T 03      Tool 3
    23 00  1700    300          Twice the pitch as run-up
    24 78  1416 - 2200K150  20  @  (8x)Threading Cycle (max RPM=320)
    25 00  1416    300          Once more without infeed
    26 33       - 2200K150      @  Threading (max RPM = 320)
    27 00  1700 - 2200          
    28 00  4000   2000          
    29M09                       Coolant off
    30M05                       
    31M30                       
   M
