#!/bin/sh
# Launches the compiler through ccache. A precompiled header that is to be replaced goes first: while it is there, it
# hides from ccache which headers it is made of.
for argument; do
    case $argument in
    *.gch) rm -f "$argument" ;;
    esac
done
exec ccache "$@"
