#!/usr/bin/env bash
# check_includes.sh ROOT: no include walks out of its layer by way of "..", none names a header of
# ours without its layer, and no test checks with what only a test of Qt's own would fail by.
set -euo pipefail
cd "$1"
mapfile -t folders < <(ls -d */ | grep -v '^build')
if grep -rnE '#include *["<][^">]*\.\.' "${folders[@]}" --include='*.h' --include='*.cpp'; then
  echo "The includes above walk around the walls between the layers."
  exit 1
fi
if grep -rnE '#include *"[^/"]*\.h"' "${folders[@]}" --include='*.h' --include='*.cpp'; then
  echo "The includes above name a header without its layer."
  exit 1
fi
if grep -rnE '\b(QTRY_[A-Z_]+|QVERIFY2?|QCOMPARE[A-Z_]*|QFAIL)\(' tests --include='*.h' --include='*.cpp'; then
  echo "The checks above return from a test of GoogleTest without failing it."
  exit 1
fi
