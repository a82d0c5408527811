#pragma once

// The whole kit.
#include "drill2d/controls.h"
#include "drill2d/engine.h"
#include "drill2d/flash.h"
#include "drill2d/font.h"
#include "drill2d/resources.h"
#include "drill2d/scenes.h"
