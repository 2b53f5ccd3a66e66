#pragma once

#include "core/LocalTree.h"
