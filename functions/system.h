#pragma once

int acetSysBeep();       // acet-sys-beep
int acetSysForeground(); // acet-sys-foreground
int acetSysKeystate();   // acet-sys-keystate
int acetSysLasterr();    // acet-sys-lasterr
int acetSysLmouseDown(); // acet-sys-lmouse-down
int acetSysMmouseDown(); // acet-sys-mmouse-down
int acetSysRmouseDown(); // acet-sys-rmouse-down
int acetSysSleep();      // acet-sys-sleep
