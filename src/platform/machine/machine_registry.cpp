#include "platform/machine/machine_registry.h"
