Shaft end, bar of 25 mm, aluminium. Zero point: centre of the finished face; the bar stands out 1.5 mm further. X is a diameter. Tool 1: right-hand turning tool.
%
    N` G`   X `    Z `  F`  H 
    00M06    00     00T 01      Tool 1
    01 92  3000   1000          Tool stands at 30 mm, 10 mm off the face
    02M03                       Spindle on
    03 00  2600    150          To the bar
    04 88    00     00  60  50  @  (3x)Facing Cycle
    05 00  2600    100          Start of the roughing cuts
    06 84  2040 - 3990  80 100  @  (3x)Longitudinal Cycle
    07 00  2100    100          
    08 84  1640 - 1790  80 100  @  (3x)Longitudinal Cycle
    09 21                       Finishing cut along the whole contour
    10 00  1200    100          In line with the chamfer
    11 01  1600 -  100  60      Chamfer 1 mm x 45 degrees
    12 01  1600 - 1800  60      Diameter 16 mm
    13 02  2000 - 2000  60      Fillet, a quadrant of radius 2 mm
    14 01  2000 - 4000  60      Diameter 20 mm
    15 01  2600 - 4000  60      Shoulder, out of the bar
    16 00  3000   1000          Back to the start
    17M05                       Spindle off
    18M30                       End of program
   M
