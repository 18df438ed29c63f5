# What every script of the project says things with; sourced, never run. The script's own name
# stands before each line.
# shellcheck shell=bash

say() { printf '%s: %s\n' "${0##*/}" "$*"; }

# One line that tells what to do, then the end.
give_up() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}
