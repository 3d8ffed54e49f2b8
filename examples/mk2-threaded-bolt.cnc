Bolt M10 x 1.5, bar of 14 mm, free-cutting steel. Radius mode: every X is a radius. Tools: 2 right-hand turning tool, 3 parting tool of 3 mm, 4 threading tool. Feeds of the cuts in 1/1000 mm per turn.
%
   N00 G24 X      Z       F    Radius mode, always before G90 and G92
   N01 G92 X 1500 Z   500 F    Tool stands 15 mm off the centre
   N02 G95 X      Z       F    Feeds per turn
   N03 G26 X   00 Z    00 F 02 Tool 2, the tool that all others refer to
   N04 G23 X   01 Z    50 F 02 Output at socket X62: coolant on
   N05 G00 X  750 Z   100 F    
   N06 G84 X  600 Z- 2500 F100 Roughing to radius 6 mm
   N07 G84 X  505 Z- 2500 F100 
   N08 G00 X  345 Z    50 F    In line with the chamfer
   N09 G01 X  495 Z-  100 F 80 Chamfer
   N10 G01 X  495 Z- 2500 F 80 Outside of the thread, 9.9 mm
   N11 G01 X  750 Z- 2500 F 80 Shoulder
   N12 G00 X 1500 Z   500 F    
   N13 G26 X-  35 Z   120 F 03 Tool 3 with its differences to tool 2
   N14 G90 X      Z       F    Absolute, as G92 has set it already
   N15 G00 X  750 Z- 2500 F    
   N16 G01 X  400 Z- 2500 F 40 Relief groove, 3 mm wide
   N17 G01 X  750 Z- 2500 F100 
   N18 G00 X 1500 Z   500 F    
   N19 G26 X-  20 Z    65 F 04 Tool 4
   N20 G00 X  550 Z   300 F    
   N21 G78 X  470 Z- 2300 F150 @  Threading (max RPM = 320)
   N22 G78 X  445 Z- 2300 F150 @  Threading (max RPM = 320)
   N23 G78 X  425 Z- 2300 F150 @  Threading (max RPM = 320)
   N24 G78 X  412 Z- 2300 F150 @  Threading (max RPM = 320)
   N25 G78 X  408 Z- 2300 F150 Last cut at full depth
   N26 G00 X  408 Z   300 F    Once more without infeed
   N27 G33 X      Z- 2300 F150 @  Threading (max RPM = 320)
   N28 G00 X  550 Z- 2300 F    
   N29 G00 X 1500 Z   500 F    
   N30 G23 X   00 Z    50 F 02 Output at socket X62: coolant off
   N31 G22 X      Z       F    End of program
   M
