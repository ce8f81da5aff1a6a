#pragma once

int acetUtilVer(); // acet-util-ver
