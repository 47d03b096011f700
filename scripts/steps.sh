# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# Named steps of a check, one line each: what a failed one printed is shown in full, what a good one printed is not.

passed=0
failed=0
skipped=0

# seconds_as_text <seconds>
seconds_as_text()
{
    printf '%d:%02d' $(($1 / 60)) $(($1 % 60))
}

# begin_step <name>, end_step <ok|FAILED> <start, of SECONDS>
begin_step()
{
    printf '  %-44s' "$1"
}
end_step()
{
    printf ' %-6s %6s\n' "$1" "$(seconds_as_text $((SECONDS - $2)))"
}

# step <name> <command> [<argument> ...]
step()
{
    local start=$SECONDS output
    begin_step "$1"
    shift
    if output=$("$@" 2>&1 </dev/null); then
        passed=$((passed + 1))
        end_step ok "$start"
    else
        failed=$((failed + 1))
        end_step FAILED "$start"
        printf '%s\n' "$output"
        return 1
    fi
}

# The line that tools read a run's result from. Fails where something has failed or nothing has run.
closing_line()
{
    printf '%d passed, %d failed' "$passed" "$failed"
    ((skipped == 0)) || printf ', %d skipped' "$skipped"
    printf '\n'
    ((failed == 0 && passed > 0))
}
