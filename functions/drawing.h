#pragma once

int acetEntGeomextents(); // acet-ent-geomextents
int acetSsClearPrev();    // acet-ss-clear-prev
int layoutlist();         // layoutlist
int vornsUtil();          // _vorns_util
