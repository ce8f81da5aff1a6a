#pragma once

int acetStrEqual();   // acet-str-equal
int acetStrCollate(); // acet-str-collate
int acetStrWcmatch(); // acet-str-wcmatch
int acetStrFormat();  // acet-str-format
int xstrcase();       // _xstrcase
