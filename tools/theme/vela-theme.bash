# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# Completes what is typed behind vela-theme. The program's own help tells its commands and options.

_vela_theme()
{
    local program=${COMP_WORDS[0]} word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words
    if ((COMP_CWORD == 1)); then
        words=$("$program" --help 2>/dev/null | sed --quiet '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p')
        mapfile -t COMPREPLY < <(compgen -W "$words --help --version" -- "$word")
        return
    fi
    case $before in
    --explain) words=$("$program" check --explain '' 2>&1 | sed --quiet 's/.*The rules are: \(.*\)\./\1/p' | tr --delete ,) ;;
    --base) words='light dark high-contrast' ;;
    --format) [[ ${COMP_WORDS[1]} == contract ]] && words='json markdown' || words='text json' ;;
    --accent) return ;;
    *)
        if [[ $word == -* ]]; then
            words=$("$program" "${COMP_WORDS[1]}" --help 2>/dev/null | grep --only-matching --extended-regexp '^ +(-[a-z], )?--[a-z-]+' |
                grep --only-matching -- '--.*')
        else
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -A directory -- "$word")
            return
        fi
        ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -F _vela_theme vela-theme
