# shellcheck shell=bash
# Named steps of a check, one line each: what a failed one printed is shown in full, what a good one printed is not.
# Sourced by scripts/check and tests/consumer/run.

passed=0
failed=0
skipped=0

# seconds_as_text <seconds>
seconds_as_text()
{
    printf '%d:%02d' $(($1 / 60)) $(($1 % 60))
}

# step <name> <command> [<argument> ...]
step()
{
    local name=$1 start=$SECONDS output
    shift
    printf '  %-44s' "$name"
    if output=$("$@" 2>&1 </dev/null); then
        passed=$((passed + 1))
        printf ' ok      %6s\n' "$(seconds_as_text $((SECONDS - start)))"
    else
        failed=$((failed + 1))
        printf ' FAILED  %6s\n%s\n' "$(seconds_as_text $((SECONDS - start)))" "$output"
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
