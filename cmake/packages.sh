# SPDX-License-Identifier: Apache-2.0
# Debian packages of this project, for ./run, ./test and .ci/run.
RUN_PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-serialport-dev qt6-translations-l10n
  fonts-dejavu-core)
TEST_PACKAGES=("${RUN_PACKAGES[@]}" lld)
ASAN_PACKAGES=("${TEST_PACKAGES[@]}" clang libclang-rt-14-dev)
CI_PACKAGES=("${ASAN_PACKAGES[@]}" clang-format git)

# Installs those that are missing, after saying which and as whom; with NIRA_NO_INSTALL=1 it only says
# which. Where there is no apt-get, the build itself says what it misses.
need_packages() {
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null || return 0
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  if [ "${NIRA_NO_INSTALL:-}" = 1 ]; then
    echo "Missing packages: ${missing[*]}" >&2
    echo "Not installed (NIRA_NO_INSTALL=1). As root: apt-get install --no-install-recommends ${missing[*]}" >&2
    return 1
  fi
  local root=()
  if [ "$(id -u)" != 0 ]; then
    root=(sudo)
    command -v sudo >/dev/null || {
      echo "Missing packages: ${missing[*]}; there is no sudo to install them with" >&2
      return 1
    }
  fi
  echo "Installing with apt-get, as root${root:+ by sudo}: ${missing[*]}"
  "${root[@]}" apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
