Typical mistakes on the F1 and what the program says about them. Limits are checked on every line. The last mistake ends the walk: the lines behind it are not reached.
%
    N` G`  X  `  Y `   Z ` F  
    00 92    00   00  2000     This line is right
    01 45                      The radius is known from the M06 on
    02 40                      
    03M06D  500S1500    00T 01 
    04 00 12000   00  2000     Horizontal spindle: X ends at 99.99 mm
    05 81           -20000  60 The slide of Z ends at 199.99 mm
    06 00  1000   00  2000     
    07 01  2000 2000-  100 100 Only two axes can move at a time
    08 01  2000 4000-  100  01 The lowest feed is 2
    09 00  2000 4000  2000     cmdWiat is no command; cmdWAIT is one
    10 01  4000 4000  2000 100 Right, but the jump comes back to it
    11 00  2000 4000  2000     
    12 27                 L 10 This repeats the three lines for ever
    13M30                      Not reached
   M-
