#pragma once

#include "harness.h"

namespace bench {

void AddQuadScenes(Suite& suite);

}  // namespace bench
