# SPDX-License-Identifier: BSD-3-Clause
# What scripts share that install from a build folder. The folder has lists of what went where: somebody's own
# installation from it can be removed by its target "uninstall" afterwards as before.

# keep_manifests BUILD FOLDER: moves the lists that a build folder has to another.
keep_manifests() {
    mkdir -p "$2"
    find "$1" -maxdepth 1 -name 'install_manifest*.txt' -exec mv -t "$2" {} +
}

# restore_manifests BUILD FOLDER: puts them back, in place of those that were made since.
restore_manifests() {
    rm -f "$1"/install_manifest*.txt
    find "$2" -type f -exec mv -t "$1" {} +
}

# ask_pkg_config OPTION...: what pkg-config, which quotes for the shell, says of the library; a word a line.
ask_pkg_config() { eval "printf '%s\n' $(pkg-config "$@" keldriver)"; }
