#pragma once

int acetHelp();     // acet-help
int acetHelpTrap(); // acet-help-trap
int geturl();       // geturl
int seturl();       // seturl
