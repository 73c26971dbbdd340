# The folders of src/ from the ground up, with the folders that each may include. A folder's library links the libraries of what it may
# include, so an include of anything else does not link; tests/layers reads the includes themselves.
set(OSTRINKA_LAYERS base platform app shell/controls engine company documents reports exchange print fiscal masterdata documents/forms shell startup)
set(OSTRINKA_EDGES platform/posix script)
