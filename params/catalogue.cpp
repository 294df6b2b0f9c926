#include "params/catalogue.h"
