# Completion of vellumora's arguments for bash.
_vellumora() {
  local current=${COMP_WORDS[COMP_CWORD]}
  local mode=${COMP_WORDS[1]}
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "--capturar --ajustes --salir --demo --prueba-halo --selftest --version --help" -- "$current")
    return
  fi
  if [ "$mode" = --capturar ]; then
    case ${COMP_WORDS[COMP_CWORD - 1]} in
      --salida) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
      --pantalla) mapfile -t COMPREPLY < <(compgen -W todas -- "$current") ;;
      --region) ;;
      *) mapfile -t COMPREPLY < <(compgen -W "--salida --pantalla --region" -- "$current") ;;
    esac
    return
  fi
  compopt -o filenames
  case $mode:$COMP_CWORD in
    --demo:2 | --prueba-halo:2) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    --demo:3 | --prueba-halo:3 | --selftest:2) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
  esac
}
complete -F _vellumora vellumora
