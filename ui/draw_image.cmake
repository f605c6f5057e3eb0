# Draws one image: DRAWING (SVG) in TONE at ZOOM to IMAGE (PNG), with RSVG_CONVERT.
file(READ ${DRAWING} drawing)
string(REPLACE "currentColor" "${TONE}" drawing "${drawing}")
set(toned ${IMAGE}.svg)
file(WRITE ${toned} "${drawing}")
execute_process(COMMAND ${RSVG_CONVERT} --zoom ${ZOOM} --output ${IMAGE} ${toned}
  COMMAND_ERROR_IS_FATAL ANY)
