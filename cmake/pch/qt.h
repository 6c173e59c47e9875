// The toolkit's heavy headers, for the renderer.
#pragma once

#include "core.h"

#include <QtCore>
#include <QtGui>
#include <QtWidgets>
