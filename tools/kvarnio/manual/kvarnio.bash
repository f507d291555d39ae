# What bash completes on a line of kvarnio: commands, their options, and the words that an argument
# may be. All else is a file.
#
# tests/tools/check-manual makes the lists from the tool's own help: the subcommands and the options
# of each command, what an option's value is called, and which words an option or the argument of a
# place may be. Every command has the common options as well.

# from --help: words
declare -gA _kvarnio_subcommands=(
    ['kvarnio']='get list set codes local undo check diff project materials points formats road env dir registry'
    ['kvarnio codes']='list add set remove update'
    ['kvarnio codes list']='kodfil miljkod linkod stamp'
    ['kvarnio codes add']='kodfil miljkod linkod stamp'
    ['kvarnio codes set']='kodfil miljkod linkod stamp'
    ['kvarnio codes remove']='kodfil miljkod linkod stamp'
    ['kvarnio local']='status create remove'
    ['kvarnio project']='paths status create'
    ['kvarnio materials']='rock fill soil'
    ['kvarnio materials rock']='find'
    ['kvarnio materials fill']='find'
    ['kvarnio materials soil']='find'
    ['kvarnio road']='info xy station z check plot import export'
)
declare -gA _kvarnio_options=(
    ['common']='--project --home --cfg --json -h --help --version'
    ['kvarnio get']='--int --double'
    ['kvarnio set']='--int --double --force --new --dry-run'
    ['kvarnio codes add kodfil']='--dry-run'
    ['kvarnio codes add miljkod']='--max --step --dry-run'
    ['kvarnio codes add linkod']='--text --dry-run'
    ['kvarnio codes add stamp']='--dry-run'
    ['kvarnio codes set kodfil']='--dry-run'
    ['kvarnio codes set miljkod']='--max --step --dry-run'
    ['kvarnio codes set linkod']='--text --dry-run'
    ['kvarnio codes set stamp']='--dry-run'
    ['kvarnio codes remove kodfil']='--dry-run'
    ['kvarnio codes remove miljkod']='--dry-run'
    ['kvarnio codes remove linkod']='--dry-run'
    ['kvarnio codes remove stamp']='--dry-run'
    ['kvarnio codes update']='--dry-run'
    ['kvarnio local status']='--rock'
    ['kvarnio local create']='--rock --overwrite --dry-run'
    ['kvarnio local remove']='--rock --yes --dry-run'
    ['kvarnio undo']='--dry-run'
    ['kvarnio check']='--all --stamp --points --folders --only --ignore --rules'
    ['kvarnio project create']='--drawing --post-processing --rock-drilling --construction --folders --yes'
    ['kvarnio materials rock']='--norwegian'
    ['kvarnio materials rock find']='--norwegian'
    ['kvarnio materials fill']='--norwegian'
    ['kvarnio materials fill find']='--norwegian'
    ['kvarnio materials soil']='--norwegian'
    ['kvarnio materials soil find']='--norwegian'
    ['kvarnio road info']='--elements'
    ['kvarnio road xy']='--km --height --profile --csv --in -o --output --separator --columns --decimal-comma'
    ['kvarnio road station']='--km --height --profile --also --csv --in -o --output --separator --columns --decimal-comma'
    ['kvarnio road z']='--km --csv --in -o --output --separator --columns --decimal-comma'
    ['kvarnio road check']='--tolerance'
    ['kvarnio road plot']='-o --output'
    ['kvarnio road import']='-o --output --format --name --profile --no-profile --layer --unit --station --tolerance --exact --dry-run'
    ['kvarnio road export']='-o --output --format --interval --tolerance --crs --separator --decimal-comma --dry-run'
    ['kvarnio env']='--bootstrap --refresh'
    ['kvarnio dir']='--sort --reverse --folders'
)
declare -gA _kvarnio_values=(
    ['common --project']='DIR'
    ['common --home']='DIR'
    ['common --cfg']='DIR'
    ['kvarnio set --double']='DECIMALS'
    ['kvarnio codes add miljkod --max']='MAX'
    ['kvarnio codes add miljkod --step']='STEP'
    ['kvarnio codes add linkod --text']='TEXT'
    ['kvarnio codes set miljkod --max']='MAX'
    ['kvarnio codes set miljkod --step']='STEP'
    ['kvarnio codes set linkod --text']='TEXT'
    ['kvarnio check --all']='FOLDER'
    ['kvarnio check --stamp']='FILE'
    ['kvarnio check --points']='FILE'
    ['kvarnio check --folders']='FILE'
    ['kvarnio check --only']='RULE'
    ['kvarnio check --ignore']='RULE'
    ['kvarnio road xy --profile']='FILE'
    ['kvarnio road xy --in']='TABLE'
    ['kvarnio road xy -o']='TABLE'
    ['kvarnio road xy --output']='TABLE'
    ['kvarnio road xy --separator']='CHARACTER'
    ['kvarnio road xy --columns']='LIST'
    ['kvarnio road station --profile']='FILE'
    ['kvarnio road station --also']='FILE|FOLDER'
    ['kvarnio road station --in']='TABLE'
    ['kvarnio road station -o']='TABLE'
    ['kvarnio road station --output']='TABLE'
    ['kvarnio road station --separator']='CHARACTER'
    ['kvarnio road station --columns']='LIST'
    ['kvarnio road z --in']='TABLE'
    ['kvarnio road z -o']='TABLE'
    ['kvarnio road z --output']='TABLE'
    ['kvarnio road z --separator']='CHARACTER'
    ['kvarnio road z --columns']='LIST'
    ['kvarnio road check --tolerance']='METRES'
    ['kvarnio road plot -o']='SVG'
    ['kvarnio road plot --output']='SVG'
    ['kvarnio road import -o']='ROADFILE'
    ['kvarnio road import --output']='ROADFILE'
    ['kvarnio road import --format']='FORMAT'
    ['kvarnio road import --name']='NAME'
    ['kvarnio road import --profile']='NAME'
    ['kvarnio road import --layer']='NAME'
    ['kvarnio road import --unit']='UNIT'
    ['kvarnio road import --station']='STATION'
    ['kvarnio road import --tolerance']='METRES'
    ['kvarnio road export -o']='OUT'
    ['kvarnio road export --output']='OUT'
    ['kvarnio road export --format']='FORMAT'
    ['kvarnio road export --interval']='METRES'
    ['kvarnio road export --tolerance']='METRES'
    ['kvarnio road export --crs']='CODE'
    ['kvarnio road export --separator']='CHARACTER'
    ['kvarnio env --bootstrap']='VER SUB'
    ['kvarnio dir --sort']='BY'
)
declare -gA _kvarnio_choices=(
    ['kvarnio get 1']='KVARNBOK.PAR KLIPPBOK.PAR JB23.PAR KVARNBOK.CFG'
    ['kvarnio list 1']='KVARNBOK.PAR KLIPPBOK.PAR JB23.PAR KVARNBOK.CFG'
    ['kvarnio set 1']='KVARNBOK.PAR KLIPPBOK.PAR JB23.PAR KVARNBOK.CFG'
    ['kvarnio dir --sort']='date name size'
)
# end of words

_kvarnio() {
    local word=${COMP_WORDS[COMP_CWORD]} command=kvarnio option='' awaited=() place=1 written words
    for written in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $written == = ]]; then # bash takes --sort=date for three words
            continue
        elif ((${#awaited[@]})); then
            awaited=("${awaited[@]:1}")
        elif [[ $written == -* ]]; then
            option=$written
            read -ra awaited <<<"${_kvarnio_values[$command $option]-${_kvarnio_values[common $option]-}}"
        elif [[ " ${_kvarnio_subcommands[$command]-} " == *" $written "* ]]; then
            command+=" $written"
        else
            ((++place))
        fi
    done

    [[ $word != = ]] || word=
    if ((${#awaited[@]})); then
        words=${_kvarnio_choices[$command $option]-}
        [[ ${awaited[0]} != DIR && ${awaited[0]} != FOLDER ]] || _kvarnio_without_files -o dirnames
    elif [[ $word == -* ]]; then
        words="${_kvarnio_options[$command]-} ${_kvarnio_options[common]}"
        _kvarnio_without_files
    elif [[ -n ${_kvarnio_subcommands[$command]-} ]]; then
        words=${_kvarnio_subcommands[$command]}
        _kvarnio_without_files
    else
        words=${_kvarnio_choices[$command $place]-}
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

# Nothing but the words, or what the options of compopt add.
_kvarnio_without_files() {
    compopt +o default "$@" 2>/dev/null || true # outside a completion there is nothing to set
}

complete -o default -F _kvarnio kvarnio
