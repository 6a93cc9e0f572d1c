# Completion of vellumora's arguments for fish.
complete -c vellumora -f
complete -c vellumora -l capturar -d 'capture now'
complete -c vellumora -n '__fish_contains_opt capturar' -l salida -rF -d 'write a picture, - for standard output'
complete -c vellumora -n '__fish_contains_opt capturar' -l pantalla -x -a todas -d 'a screen, or all'
complete -c vellumora -n '__fish_contains_opt capturar' -l region -x -d 'X,Y,WxH in device pixels'
complete -c vellumora -l ajustes -d 'open the settings'
complete -c vellumora -l salir -d 'end the running one'
complete -c vellumora -l demo -rF -d 'write pictures of a scripted capture'
complete -c vellumora -l prueba-halo -rF -d 'film the glow'
complete -c vellumora -l selftest -rF -d 'report which services work here'
complete -c vellumora -s v -l version -d 'say which version this is'
complete -c vellumora -s h -l help -d 'say what there is'
