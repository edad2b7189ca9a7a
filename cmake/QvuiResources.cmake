# qvui_add_resources(target file.rc) is defined by the kernel room.
