#include "utils/util.h"

Q_LOGGING_CATEGORY(debug_message, "debug.message")
