# The libraries in layer order, bottom first. A library links only libraries
# earlier in this list, and a source file includes only headers of its own
# folder or of folders earlier in the list (a test checks it). Headers named
# *_state.h are plain data that the Game aggregate holds; any folder may
# include them, and they include only core/ headers and other state headers.
set(RAVELTON_LAYERS core logs dice config analysis stats engine automation script store cycle batch table)
