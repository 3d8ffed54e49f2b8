// tick.h: what runs once a second.

#pragma once

/// Sets the enabled states of tool bar and menu, and gives a window in normal state its smallest size.
void tmr1sec_Timer();
