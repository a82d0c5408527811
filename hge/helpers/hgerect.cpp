#include "hgerect.h"
