Stepped pin, bar of 20 mm, aluminium. Zero point: centre of the finished face. X is a diameter, Z points away from the chuck. Tool: right-hand turning tool.
%
   N00 G94 X      Z       F    Feeds in mm/min
   N01 G92 X 3000 Z   500 F    Tool stands at 30 mm, 5 mm off the face
   N02 G00 X 2200 Z    00 F    To the face, 1 mm off the bar
   N03 G01 X   00 Z    00 F 50 Face
   N04 G00 X   00 Z   100 F    Leave the face first, then go out
   N05 G00 X 2000 Z   100 F    Start of the roughing cuts
   N06 G84 X 1840 Z- 2980 F 80 Roughing: the cycle comes back by itself
   N07 G84 X 1640 Z- 2980 F 80 0.4 mm stay for the finishing cut
   N08 G84 X 1440 Z- 1480 F 80 Second step
   N09 G84 X 1240 Z- 1480 F 80 
   N10 G21 X      Z       F    Finishing cut along the whole contour
   N11 G00 X  800 Z   100 F    In line with the chamfer
   N12 G01 X 1200 Z-  100 F 50 Chamfer 1 mm x 45 degrees
   N13 G01 X 1200 Z- 1500 F 50 Diameter 12 mm
   N14 G01 X 1600 Z- 1500 F 50 Shoulder
   N15 G01 X 1600 Z- 3000 F 50 Diameter 16 mm
   N16 G01 X 2200 Z- 3000 F 50 Out of the bar
   N17 G00 X 3000 Z   500 F    Back to the start
   N18 G20 X      Z       F    Stop: measure both diameters
   N19 G22 X      Z       F    End of program
   M
