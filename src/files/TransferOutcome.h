#pragma once

#include "core/TransferOutcome.h"
