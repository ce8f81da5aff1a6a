#pragma once

int acetSsDragRotate(); // acet-ss-drag-rotate
