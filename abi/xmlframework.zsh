#compdef xmlframework
_xmlframework() {
    local path_= word
    local -a commands options
    for word in ${words[2,CURRENT-1]}; do
        case "$path_ $word" in
        ' types'|' check'|' convert'|' show'|' diff'|' schema'|' mic'|' mic import'|' mic update'|' mic export') path_+=" $word" ;;
        esac
    done
    case "$path_ ${words[CURRENT-1]}" in
    *' --log-level') compadd -- trace debug detail info notice warning error fatal; return ;;
    *' --color') compadd -- auto always never; return ;;
    ' types --format') compadd -- table json; return ;;
    ' check --type') compadd -- ALID BROK EXCH ALGO KJOB KMOD XMIC OPUS SPSI SPRD TRSL URTL; return ;;
    ' check --algorithm') _files; return ;;
    ' check -j'|' check --jobs') _files; return ;;
    ' check --format') compadd -- text json; return ;;
    ' convert -o'|' convert --output') _files; return ;;
    ' show --filter') _files; return ;;
    ' show --format') compadd -- table json; return ;;
    ' diff --format') compadd -- text json; return ;;
    ' schema -o'|' schema --output') _files; return ;;
    ' schema --all') _files; return ;;
    ' mic import --encoding') compadd -- utf-8 windows-1252; return ;;
    ' mic import -o'|' mic import --output') _files; return ;;
    ' mic update --encoding') compadd -- utf-8 windows-1252; return ;;
    ' mic update -o'|' mic update --output') _files; return ;;
    ' mic export -o'|' mic export --output') _files; return ;;
    esac
    case $path_ in
    '') commands=( 'types:List the classes of records, and which of them the registry makes' 'check:Read files and say whether they are good' 'convert:Read a record and write it in its own form' 'show:Print a record for people, or for other programs' 'diff:Say how two records differ; exit status 0: not at all, 1: they do, 2: trouble' 'schema:Write the XML Schema of a record'\''s documents, or all schemas' 'mic:Market identifier codes: the ISO 10383 register' ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '--version:Display program version information and exit' '--log-level:The least level of log lines to show' '--color:Whether to use colours; auto: on a terminal without NO_COLOR' ) ;;
    ' types') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '--format:table, or json with everything about their documents' ) ;;
    ' check') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '--type:Category code of the records, whatever their root elements' '--algorithm:Algorithm specification against which the parameters of job specifications are checked' '--strict:A file is bad when the record does not hold all of it' '--complete:--strict, and a file is bad when it leaves something to its default' '-j:How many files to read at once, up to 1024; 0: as many as there are cores' '--jobs:How many files to read at once, up to 1024; 0: as many as there are cores' '-q:Print only what is bad' '--quiet:Print only what is bad' '--format:text, or json: one object a line for each file' ) ;;
    ' convert') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '-o:File to write instead of standard output' '--output:File to write instead of standard output' '--lossy:Write over the input even where the record does not hold all of it' '--pretty:Write each element in a line of its own, indented' ) ;;
    ' show') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '--filter:Show only the rows with this text, in whatever letter case' '--format:table, or json with everything that the record holds' ) ;;
    ' diff') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '--format:text, or json with an object for each difference' ) ;;
    ' schema') commands=( 'ALID:Category code or root element' 'AlgoIDMappingList:Category code or root element' 'BROK:Category code or root element' 'BrokerMap:Category code or root element' 'EXCH:Category code or root element' 'ExchangeDefinitionList:Category code or root element' 'ALGO:Category code or root element' 'KestrumAlgorithmSpec:Category code or root element' 'KJOB:Category code or root element' 'KestrumJobSpec:Category code or root element' 'KMOD:Category code or root element' 'KestrumModuleSpec:Category code or root element' 'KestrumUserLimit:Category code or root element' 'XMIC:Category code or root element' 'MICDefinitionList:Category code or root element' 'OPUS:Category code or root element' 'OrvalenPriceStatistics:Category code or root element' 'SPSI:Category code or root element' 'SyntheticPriceServerInstanceList:Category code or root element' 'SPRD:Category code or root element' 'SyntheticSpreadSpec:Category code or root element' 'TRSL:Category code or root element' 'TradingHoursSchemesList:Category code or root element' 'URTL:Category code or root element' 'UserTextHistoryList:Category code or root element' ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '-o:File to write instead of standard output' '--output:File to write instead of standard output' '--all:Folder in which to write all schemas, as ROOT.xsd' ) ;;
    ' mic') commands=( 'import:Make a MIC definition list of a register' 'update:Bring a MIC definition list up to date by a register' 'export:Make a register of a MIC definition list' ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' ) ;;
    ' mic import') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '--encoding:The register'\''s encoding, instead of detecting it' '-o:File to write instead of standard output' '--output:File to write instead of standard output' ) ;;
    ' mic update') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '--encoding:The register'\''s encoding, instead of detecting it' '-o:File to write instead of standard output' '--output:File to write instead of standard output' '--lossy:Write over MICS.xml even where the list does not hold all of it' ) ;;
    ' mic export') commands=( ); options=( '-h:Print this help message and exit' '--help:Print this help message and exit' '-o:File to write instead of standard output' '--output:File to write instead of standard output' ) ;;
    esac
    (( $#commands )) && _describe command commands || _files
    _describe -o option options
}
_xmlframework "$@"
