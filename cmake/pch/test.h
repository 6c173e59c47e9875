#pragma once

#include "core.h"

#include <gtest/gtest.h>
