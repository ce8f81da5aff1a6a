#pragma once

int acetStrFind();    // acet-str-find
int acetStrReplace(); // acet-str-replace
