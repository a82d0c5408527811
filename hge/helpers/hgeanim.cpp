#include "hgeanim.h"
