# wait_for CONDITION...: up to a minute.
wait_for() {
    local tenths
    for ((tenths = 0; tenths < 600; ++tenths)); do
        if "$@"; then return 0; fi
        sleep 0.1
    done
    return 1
}
