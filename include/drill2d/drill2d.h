#pragma once

// The whole kit.
#include "drill2d/engine.h"
#include "drill2d/resources.h"
