#!/usr/bin/env bash
# Tests the wheel as its users have it: installed into an environment of its own, away from the
# sources.
#
# usage: run.sh install | test | types PYTHON SOURCE WHEEL_FOLDER ENVIRONMENT [PYTEST_ARGUMENT]...
set -euo pipefail
action=$1 python=$2 source=$3 wheels=$4 environment=$5
shift 5

case $action in
    install)
        rm -rf "$environment"
        # The packages that the tests need are those of the system.
        "$python" -m venv --without-pip --system-site-packages "$environment"
        "$python" -m pip --python "$environment" install --quiet --no-index --no-deps \
            --disable-pip-version-check --root-user-action=ignore "$wheels"/*.whl
        ;;
    test)
        mkdir -p "$environment/run"
        cd "$environment/run"
        KVOCAEIO_SOURCE=$source PYTHONDONTWRITEBYTECODE=1 "$environment/bin/python" -m pytest \
            -q -p no:cacheprovider --basetemp "$environment/temp" \
            --rootdir "$source/tests/python" "$source/tests/python" "$@"
        ;;
    types)
        cd "$environment"
        "$python" -m mypy --config-file "$source/python/mypy.ini" --cache-dir "$environment/mypy" \
            --python-executable "$environment/bin/python" -p kvocaeio
        ;;
esac
