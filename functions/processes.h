#pragma once

int acetSysCommand(); // acet-sys-command
int acetSysProcid();  // acet-sys-procid
int acetSysSpawn();   // acet-sys-spawn
int acetSysTerm();    // acet-sys-term
int acetSysWait();    // acet-sys-wait
int startapp();       // startapp
