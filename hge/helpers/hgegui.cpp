#include "hgegui.h"
