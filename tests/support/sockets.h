#pragma once

/// How many sockets this process has open.
int openSockets();
