#pragma once

#include "core/PartFile.h"
