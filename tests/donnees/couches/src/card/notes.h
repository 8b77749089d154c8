#include "store/base.h"
