#pragma once

int acetRegDel(); // acet-reg-del
int acetRegGet(); // acet-reg-get
int acetRegPut(); // acet-reg-put
