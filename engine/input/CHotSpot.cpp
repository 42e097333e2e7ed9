#include "input/CHotSpot.h"

int CHotSpot::minPriority = 0;
int CHotSpot::maxPriority = 10000000;
