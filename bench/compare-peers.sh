#!/usr/bin/env bash
# Times the elementary functions at 1000 digits in Quorvel and in two peers,
# Debian's `bc -l` (scale=1000) and `qalc` (precision 1000), and prints one
# table. Each figure is a whole process: start-up, the constants the function
# needs, the computation and printing the 1000 digits. A manual tool, not
# part of the tests or of CI.
#
#   bench/compare-peers.sh [--quorvel PATH] [--runs N]
#
# PATH defaults to the first of build/release/quorvel and build/perf/quorvel
# that exists (build it with -DCMAKE_BUILD_TYPE=Release). Each command runs N
# times (default 3); the table shows the fastest wall-clock time of the runs
# and, in brackets, the CPU time (user + system) of that run. A peer that is
# not installed is said so and skipped (Debian packages: bc, qalc).
#
# The ratio is the peer's time over Quorvel's (wall clock; the CPU ratio in
# brackets, which a loaded machine disturbs less). The last column checks
# that Quorvel's first 990 significant digits equal bc's.
set -u

cd "$(dirname "$0")/.." || exit 2

QUORVEL=""
RUNS=3
while [ $# -gt 0 ]; do
    case "$1" in
        --quorvel) QUORVEL="$2"; shift 2 ;;
        --runs) RUNS="$2"; shift 2 ;;
        -h|--help) sed -n '2,19p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
        *) echo "unknown argument: $1" >&2; exit 2 ;;
    esac
done
if [ -z "$QUORVEL" ]; then
    for candidate in build/release/quorvel build/perf/quorvel; do
        if [ -x "$candidate" ]; then QUORVEL="$candidate"; break; fi
    done
fi
if [ -z "$QUORVEL" ] || [ ! -x "$QUORVEL" ]; then
    echo "Quorvel not found: build it (cmake -DCMAKE_BUILD_TYPE=Release) or pass --quorvel PATH" >&2
    exit 2
fi

HAVE_BC=1
HAVE_QALC=1
if ! command -v bc >/dev/null 2>&1; then
    HAVE_BC=0
    echo "bc is not installed (Debian package bc): its column is skipped"
fi
if ! command -v qalc >/dev/null 2>&1; then
    HAVE_QALC=0
    echo "qalc is not installed (Debian package qalc): its column is skipped"
fi

# name | bc -l expression | qalc expression | Quorvel RPN line
CASES=(
    "exp(1.5)|e(1.5)|exp(1.5)|1.5 exp"
    "ln(2)|l(2)|ln(2)|2 ln"
    "sin(1.5)|s(1.5)|sin(1.5)|1.5 sin"
    "cos(1.5)|c(1.5)|cos(1.5)|1.5 cos"
    "atan(0.7)|a(0.7)|atan(0.7)|0.7 atan"
    "sqrt(2)|sqrt(2)|sqrt(2)|2 sqrt"
    "3^0.7|e(0.7*l(3))|3^0.7|3 0.7 ^"
)

WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

# best_of OUTFILE COMMAND...: runs COMMAND $RUNS times with its output in
# OUTFILE and prints "wall cpu" (seconds) of the fastest run.
best_of() {
    local out="$1"
    shift
    local best_wall="" best_cpu="" i line wall user sys cpu
    for ((i = 0; i < RUNS; i++)); do
        line=$( { TIMEFORMAT='%3R %3U %3S'; time "$@" >"$out" 2>/dev/null; } 2>&1 | tail -n 1)
        read -r wall user sys <<<"$line"
        cpu=$(awk -v u="$user" -v s="$sys" 'BEGIN { printf "%.3f", u + s }')
        if [ -z "$best_wall" ] || awk -v a="$wall" -v b="$best_wall" 'BEGIN { exit !(a < b) }'; then
            best_wall="$wall"
            best_cpu="$cpu"
        fi
    done
    echo "$best_wall $best_cpu"
}

run_bc() { printf 'scale=1000\n%s\n' "$1" | bc -l; }
run_qalc() { qalc -t -s "precision 1000" -s "angle 1" "$1"; }
run_quorvel() { "$QUORVEL" --no-state --rpn --plain -e "1000 std" -e "$1"; }

# The significant digits of a number printed by any of the three.
digits_of() { tr -d '\\\n \t' <"$1" | sed 's/^x://' | tr -d '.-' | sed 's/^0*//; s/[eE].*//' | cut -c1-990; }

ms() { awk -v t="$1" 'BEGIN { printf "%.0f", t * 1000 }'; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.1f", a / b; else printf "-" }'; }

echo "Quorvel: $QUORVEL; fastest of $RUNS runs; times in ms, CPU time in brackets; $(date -u '+%Y-%m-%d %H:%M UTC')"
echo
printf '| %-10s | %-14s | %-14s | %-14s | %-18s | %-18s | %-9s |\n' \
    "function" "bc -l" "qalc" "Quorvel" "bc / Quorvel" "qalc / Quorvel" "digits"
printf '|%s|%s|%s|%s|%s|%s|%s|\n' "------------" "----------------" "----------------" \
    "----------------" "--------------------" "--------------------" "-----------"
for case in "${CASES[@]}"; do
    IFS='|' read -r name bcexpr qalcexpr qline <<<"$case"
    read -r q_wall q_cpu <<<"$(best_of "$WORK/quorvel" run_quorvel "$qline")"
    bc_cell="skipped"; qalc_cell="skipped"; bc_ratio="-"; qalc_ratio="-"; check="-"
    if [ "$HAVE_BC" = 1 ]; then
        read -r b_wall b_cpu <<<"$(best_of "$WORK/bc" run_bc "$bcexpr")"
        bc_cell="$(ms "$b_wall") ($(ms "$b_cpu"))"
        bc_ratio="$(ratio "$b_wall" "$q_wall") ($(ratio "$b_cpu" "$q_cpu"))"
        if [ "$(digits_of "$WORK/bc")" = "$(digits_of "$WORK/quorvel")" ]; then check="same"; else check="DIFFER"; fi
    fi
    if [ "$HAVE_QALC" = 1 ]; then
        read -r c_wall c_cpu <<<"$(best_of "$WORK/qalc" run_qalc "$qalcexpr")"
        qalc_cell="$(ms "$c_wall") ($(ms "$c_cpu"))"
        qalc_ratio="$(ratio "$c_wall" "$q_wall") ($(ratio "$c_cpu" "$q_cpu"))"
    fi
    printf '| %-10s | %-14s | %-14s | %-14s | %-18s | %-18s | %-9s |\n' "$name" "$bc_cell" "$qalc_cell" \
        "$(ms "$q_wall") ($(ms "$q_cpu"))" "$bc_ratio" "$qalc_ratio" "$check"
done
