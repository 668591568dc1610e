#!/usr/bin/env bash
# What Debian's own check of packages finds; errors and warnings both count.
# usage: lintian_test.sh PACKAGES
set -euo pipefail
lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$1"/*.deb
