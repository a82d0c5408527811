#include "hgesprite.h"
