# Shared by ./run and ./check, which source it from the project's root folder.

say() { printf '\n== %s\n' "$*"; }

# Configures and builds a preset: build_preset PRESET [TARGET ...]
build_preset() {
  preset=$1
  shift
  cmake --preset "$preset"
  cmake --build --preset "$preset" ${1:+--target "$@"}
}
