#pragma once

#include <qvui/platform/native/types.h>
