Ball end of a lever, bar of 3/4 inch, brass. All lines incremental: X is the way of the slide. The tool starts 0.100 outside the bar and 0.100 in front of the face. Zero point: the start.
%
   N00 G91 X      Z       F    Incremental, also without this line
   N01 G84 X- 150 Z-  640 F 40 Roughing, each cut from the start point
   N02 G84 X- 200 Z-  590 F 40 
   N03 G84 X- 250 Z-  225 F 40 From here on in steps along the ball
   N04 G84 X- 300 Z-  155 F 40 
   N05 G84 X- 350 Z-  120 F 40 
   N06 G00 X- 475 Z    00 F    To the centre line
   N07 G01 X   00 Z-  100 F 30 To the tip
   N08 G03 X  250 Z-  250 F 30 Ball, a quadrant of radius 0.250
   N09 G01 X   00 Z-  250 F 30 Neck, diameter 0.500
   N10 G02 X   62 Z-   62 F 30 Fillet, radius 0.062
   N11 G01 X  100 Z    00 F 30 Shoulder, out of the bar
   N12 G00 X   00 Z   662 F    Back in front of the face
   N13 G00 X   63 Z    00 F    The ways add up to 0: start point
   N14 G22 X      Z       F    End of program
   "
