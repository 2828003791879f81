# shellcheck shell=sh disable=SC2154
# What the test commands count with. Read by them, after they have set `logs` to the folder for what is printed.

passed=0
failed=0

# One check: name, then the command. Its output is shown only when it fails.
check() {
    name=$1
    shift
    if "$@" >"$logs/$name.log" 2>&1; then
        echo "ok      $name"
        passed=$((passed + 1))
    else
        echo "FAILED  $name"
        cat "$logs/$name.log"
        failed=$((failed + 1))
    fi
}

# One test program: name, then the command. Its own tests are counted; ending badly without naming one, or running
# none at all, counts as a failure. A test may start the program a second time; the last count is its own.
run_tests() {
    name=$1
    shift
    status=0
    "$@" --gtest_color=no >"$logs/$name.log" 2>&1 || status=$?
    count=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\{0,1\}\..*/\1/p' "$logs/$name.log" | tail -n 1)
    bad=$(sed -n 's/^\[  FAILED  \] \([0-9]*\) tests\{0,1\}, listed below:.*/\1/p' "$logs/$name.log" | tail -n 1)
    if [ "$status" != 0 ] && [ "${bad:-0}" = 0 ] || [ "${count:-0}" = 0 ]; then
        bad=$((${bad:-0} + 1))
    fi
    passed=$((passed + ${count:-0}))
    failed=$((failed + ${bad:-0}))
    if [ "${bad:-0}" = 0 ]; then
        echo "ok      $name ($count tests)"
    else
        echo "FAILED  $name"
        grep -v '^\[       OK \]' "$logs/$name.log" | tail -n 150
    fi
}

finish() {
    echo "$passed passed, $failed failed"
    [ "$failed" = 0 ]
    exit
}
