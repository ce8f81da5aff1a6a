#pragma once

int acadTruecolorcli(); // acad_truecolorcli
