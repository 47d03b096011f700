#pragma once

/// Frees what SHAPISetCloseButtonOfWindowEnable() has kept of a window that is gone, and sets the pointer to null.
void discardWindowState(void **savedState);
