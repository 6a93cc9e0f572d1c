# Runs when everything lies in its place, at the end of an installation: bin, share and id say where and what.

# Only bundles bring libraries along that have to be found.
foreach(file IN ITEMS ${bin}/vellumora ${bin}/../lib/vellumora/libvellumora.so)
  file(RPATH_REMOVE FILE $ENV{DESTDIR}${file})
endforeach()

# The bus starts nothing, and KWin permits nothing, without the whole path.
foreach(file IN ITEMS applications/${id}.desktop dbus-1/services/${id}.service)
  file(READ $ENV{DESTDIR}${share}/${file} text)
  string(REPLACE "\nExec=vellumora" "\nExec=${bin}/vellumora" text "${text}")
  file(WRITE $ENV{DESTDIR}${share}/${file} "${text}")
endforeach()
