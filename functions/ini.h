#pragma once

int acetIniGet(); // acet-ini-get
int acetIniSet(); // acet-ini-set
