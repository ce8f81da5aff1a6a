#pragma once

int acetStrEqual();   // acet-str-equal
int acetStrCollate(); // acet-str-collate
int xstrcase();       // _xstrcase
