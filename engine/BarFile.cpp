#include "engine/BarFile.h"
