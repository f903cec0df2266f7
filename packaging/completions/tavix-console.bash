# Completion of tavix-console for bash: source this file, or copy it to /usr/share/bash-completion/completions/tavix-console.
_tavix_console() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  case $before in
    --machine | --export) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
    --page) mapfile -t COMPREPLY < <(compgen -W "privacy system registry advanced" -- "$word") ;;
    --function | --scope | --set | --tick | --untick | --now) COMPREPLY=() ;;
    *)
      mapfile -t COMPREPLY < <(compgen -W "--machine --live --page --one-click --function --scope --set --untick --tick
        --clean --yes --now --json --export --mask --help --version" -- "$word")
      ;;
  esac
}
complete -F _tavix_console tavix-console tavix-console.exe
