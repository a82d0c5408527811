#include "core/log.h"
