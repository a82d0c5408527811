#pragma once

// The whole kit.
#include "drill2d/engine.h"
#include "drill2d/flash.h"
#include "drill2d/resources.h"
#include "drill2d/scenes.h"
