// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

/// Which calls of a program fail, and how.
struct Faults
{
    enum Kind { File, Socket, Image };
    static constexpr int Short = -1; // less is read or written than was asked for

    Kind kind; // what counts: calls for files, for sockets, or for the memory of pictures
    int at; // number of the call that fails, counted from 1; none if it is 0
    int error; // errno that it fails with, or Short
    bool lasts; // all further calls fail, too
};

/// Calls count from now on.
void beginFaults(const Faults *faults);
/// How many calls there were. What has failed is @p failed, or the empty text.
int endFaults(const char **failed);
