# SPDX-License-Identifier: Apache-2.0
# bash completion for vornctl: its commands, the site options, each command's options, the
# backup files for restore and, after "set ADDRESS", the keys it writes.

_vornctl()
{
    local cur=${COMP_WORDS[COMP_CWORD]}
    local prev=${COMP_WORDS[COMP_CWORD - 1]}
    local keys="AtemIp AtemPort Channel SwitcherBand SwitcherModel AtemExtTally TallyType TallyGpioType
        ScenarioType SilenceSuppress Wire2Enable CallMagic IPAddress Netmask Gateway"
    local command="" word i arguments=0

    # The command, and how many of its own arguments come before the cursor;
    # an option's value and a KEY=VALUE split at "=" count as nothing more.
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        case $word in
            --timeout | --expect | --range | --since | --site | --from | --to | -o | --output) ((i++)) ;;
            -*) ;;
            =) ((i++)) ;;
            *)
                if [[ -z $command ]]; then
                    command=$word
                elif [[ ${COMP_WORDS[i + 1]} != "=" ]]; then
                    ((arguments++))
                fi
                ;;
        esac
    done

    case $prev in
        --timeout | --expect | --range | --since) return ;;
        -o | --output | --site | --from | --to)
            COMPREPLY=($(compgen -f -- "$cur"))
            return
            ;;
        =) return ;;
    esac
    [[ $cur == "=" ]] && return

    local options
    case $command in
        "")
            COMPREPLY=($(compgen -W "discover show set backup restore units history forget site --site --no-site --help --version" -- "$cur"))
            return
            ;;
        discover) options="--timeout --expect --json --range --help" ;;
        show) options="--timeout --json --help" ;;
        set) options="--yes --timeout --help" ;;
        backup) options="-o --output --timeout --help" ;;
        restore) options="--dry-run --network --yes --allow-other-serial --timeout --help" ;;
        units) options="--timeout --json --help" ;;
        history) options="--json --since --show-secrets --help" ;;
        forget) options="--yes --help" ;;
        site)
            if [[ $arguments -eq 0 ]]; then
                [[ $cur == -* ]] || COMPREPLY=($(compgen -W "copy" -- "$cur"))
                options="--help"
            else
                options="--from --to --merge --help"
            fi
            ;;
        *) return ;;
    esac

    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
    elif [[ $command == set && $arguments -ge 1 ]]; then
        local key
        COMPREPLY=()
        for key in $keys; do
            [[ $key == "$cur"* ]] && COMPREPLY+=("$key=")
        done
        compopt -o nospace 2>/dev/null
    elif [[ $command == restore && $arguments -eq 0 ]]; then
        COMPREPLY=($(compgen -f -X '!*.json' -- "$cur") $(compgen -d -- "$cur"))
    fi
}
complete -F _vornctl vornctl
