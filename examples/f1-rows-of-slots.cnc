Plate with two rows of three slots, horizontal spindle. Zero point: lower left corner, front face. A subroutine for the row calls one for the slot. Tool 1: ball cutter of 1/8 inch.
%
    N` G`  X  `  Y `   Z ` F  
    00M98    01   01    01     Play of the three spindles of the slides
    01M20                      Output pin 7: clamp closes
    02 04   100                1 second
    03M06D   62S2000    00T 01 Tool 1: radius 0.062
    04 92    00   00  1000     
    05M03                      
    06M22                      Output pin 18: air blast on
    07 00   500   00  1000     cmdINTERVAL1 slow drawing from here
    08 00   500 1000  1000     First slot of the lower row
    09 00   500 1000    20     
    10 91                      
    11 25                 L 15 Lower row
    12 00- 2500 1500    00     cmdWAIT before the upper row
    13 25                 L 15 
    14 27                 L 27 Jump over the subroutines
    15 25                 L 21 Row: slot, step, slot, step, slot
    16 00   500   00    00     
    17 25                 L 21 
    18 00   500   00    00     
    19 25                 L 21 
    20M17                      
    21 01    00   00-   20  30 Down to the face
    22 03   100   00-  100  30 Into the plate on a quadrant in X and Z
    23 01   300   00    00  50 
    24 03   100   00   100  30 And out again
    25 00    00   00    20     
    26M17                      
    27 90                      
    28 21                      cmdRUN
    29 00  2500 2500  1000     
    30 00    00 2500  1000     cmdSKIP for the longer plate only
    31 00    00   00  1000     
    32M23                      Output pin 18: air blast off
    33M05                      
    34M00                      Stop: look at the slots
    35M21                      Output pin 7: clamp opens
    36M26                   02 Two pulses for the counter of slots
    37M30                      
   "-
