# bash completion for xmlframework
_xmlframework() {
    local current=${COMP_WORDS[COMP_CWORD]} path= word words
    COMPREPLY=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case "$path $word" in
        ' types'|' check'|' convert'|' show'|' diff'|' schema'|' mic'|' mic import'|' mic update'|' mic export') path+=" $word" ;;
        esac
    done
    case "$path ${COMP_WORDS[COMP_CWORD-1]}" in
    *' --log-level') COMPREPLY=($(compgen -W 'trace debug detail info notice warning error fatal' -- "$current")); return ;;
    *' --color') COMPREPLY=($(compgen -W 'auto always never' -- "$current")); return ;;
    ' types --format') COMPREPLY=($(compgen -W 'table json' -- "$current")); return ;;
    ' check --type') COMPREPLY=($(compgen -W 'ALID BROK EXCH ALGO KJOB KMOD XMIC OPUS SPSI SPRD TRSL URTL' -- "$current")); return ;;
    ' check --algorithm') return ;;
    ' check -j'|' check --jobs') return ;;
    ' check --format') COMPREPLY=($(compgen -W 'text json' -- "$current")); return ;;
    ' convert -o'|' convert --output') return ;;
    ' show --filter') return ;;
    ' show --format') COMPREPLY=($(compgen -W 'table json' -- "$current")); return ;;
    ' diff --format') COMPREPLY=($(compgen -W 'text json' -- "$current")); return ;;
    ' schema -o'|' schema --output') return ;;
    ' schema --all') return ;;
    ' mic import --encoding') COMPREPLY=($(compgen -W 'utf-8 windows-1252' -- "$current")); return ;;
    ' mic import -o'|' mic import --output') return ;;
    ' mic update --encoding') COMPREPLY=($(compgen -W 'utf-8 windows-1252' -- "$current")); return ;;
    ' mic update -o'|' mic update --output') return ;;
    ' mic export -o'|' mic export --output') return ;;
    esac
    case $path in
    '') words='types check convert show diff schema mic -h --help --version --log-level --color' ;;
    ' types') words='-h --help --format' ;;
    ' check') words='-h --help --type --algorithm --strict --complete -j --jobs -q --quiet --format' ;;
    ' convert') words='-h --help -o --output --lossy --pretty' ;;
    ' show') words='-h --help --filter --format' ;;
    ' diff') words='-h --help --format' ;;
    ' schema') words='ALID AlgoIDMappingList BROK BrokerMap EXCH ExchangeDefinitionList ALGO KestrumAlgorithmSpec KJOB KestrumJobSpec KMOD KestrumModuleSpec KestrumUserLimit XMIC MICDefinitionList OPUS OrvalenPriceStatistics SPSI SyntheticPriceServerInstanceList SPRD SyntheticSpreadSpec TRSL TradingHoursSchemesList URTL UserTextHistoryList -h --help -o --output --all' ;;
    ' mic') words='import update export -h --help' ;;
    ' mic import') words='-h --help --encoding -o --output' ;;
    ' mic update') words='-h --help --encoding -o --output --lossy' ;;
    ' mic export') words='-h --help -o --output' ;;
    esac
    COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -o default -F _xmlframework xmlframework
