#!/usr/bin/env bash
# check_symbols.sh MODEL_ARCHIVE PACKAGE TERMINAL: the model needs nothing of Qt, the package shows
# nothing but the three functions of a package, and the terminal that users run needs no test library.
set -euo pipefail
status=0

if nm -uC "$1" 2>/dev/null | grep -E '\bQ[A-Z][A-Za-z]+::|\bq[A-Z][a-z]+\(|qt_version_tag'; then
  echo "The model needs the symbols of Qt above."
  status=1
fi

exported=$(nm -D --defined-only "$2" | awk '{print $3}' | sort | tr '\n' ' ')
expected="quorPackageContractVersion quorPackageFinalize quorPackageInitialize "
if [ "$exported" != "$expected" ]; then
  echo "The package exports: $exported"
  echo "It should export:    $expected"
  status=1
fi

if readelf -d "$3" | grep -E 'NEEDED.*(Qt6Test|gtest)'; then
  echo "The terminal needs the test library above."
  status=1
fi
exit $status
