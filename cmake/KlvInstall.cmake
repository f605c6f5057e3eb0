# Where the installed files lie. On Linux the program has a private folder that looks like the build
# tree's, with a link from the folder of commands: what it looks for beside itself (its licence, the
# simulated instrument) it finds in every case.
if(WIN32)
  set(KLV_PROGRAM_FOLDER .)
else()
  set(KLV_PROGRAM_FOLDER lib/klv)
endif()
# Name of the desktop entry, the icons and the metadata; the window names itself by it, too.
set(KLV_DESKTOP_ID example.veltro.klv)
