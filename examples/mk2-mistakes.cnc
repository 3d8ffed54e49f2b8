Typical mistakes on the MK2 and what the program says about them. Limits are checked on every line. The last mistake ends the walk: the lines behind it are not reached.
%
   N00 G92 X 3000 Z   500 F    This line is right
   N01 G00 X 6000 Z   100 F    The slide ends at 59.99 mm
   N02 G01 X 2000 Z   100 F500 The highest feed is 499
   N03 G84 X 1800 Z- 3000 F 01 The lowest feed is 2
   N04 G78 X 1700 Z- 2000 F500 The coarsest pitch is 4.99 mm
   N05 G21 X      Z       F    cmdNoRadii is no command; cmdNORADIUS is one
   N06 G00 X 2000 Z   100 F    Right again
   N07 G24 X      Z       F    Radius mode comes before G90 and G92
   N08 G00 X 3000 Z   500 F    Not reached, as the line above ends it
   N09 G22 X      Z       F    Not reached
   M
