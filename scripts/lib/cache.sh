# shellcheck shell=bash disable=SC2154
# Everything that is not the checkout lives here, so that a fresh clone finds it again.
cache=${DRILL2D_CACHE:-${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/drill2d}
[[ $cache == /* ]] || cache=$PWD/$cache
