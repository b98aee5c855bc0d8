# Completion of accessory-simulator for bash; source it.
_accessory_simulator() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words=
    COMPREPLY=()
    case $previous in
        --check) return ;; # a file
        --speed | --seed | --fault | --ready-fd) compopt +o default && return ;;
    esac
    if [[ $current == -* ]]; then
        words='--speed --loop --exit --unattended --seed --fault --verbose --ready-fd
            --list --check --describe-scenario --version --help'
    else
        words=$(accessory-simulator --list 2>/dev/null | sed -n 's|^ .*/\(.*\)\.json$|\1|p')
    fi
    COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -o default -F _accessory_simulator accessory-simulator
