#!/usr/bin/env bash
# A print spooler for tests, apart from any that this machine has: its configuration, queues, jobs
# and socket are below one folder. Each document that it prints becomes FOLDER/out/JOB-QUEUE.pdf,
# beside a JOB-QUEUE.txt of three lines: its title, the copies, the options.
# Usage: cups.sh start FOLDER   starts it; prints the socket for CUPS_SERVER
#        cups.sh end FOLDER     ends it and all that it started
# The queues: PDF, the default, with 300 dots per inch and A4; Fine, with 600 dots per inch, Letter
# and margins that its printer cannot reach.
# Needs the packages cups and printer-driver-cups-pdf, and root.
set -euo pipefail

driver=/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd
# Debian's tools for administrators are not on every caller's path.
export PATH=$PATH:/usr/sbin:/sbin

die() {
    echo "cups.sh: $*" >&2
    exit 1
}

write_configuration() {
    cat >"$folder/cupsd.conf" <<CONFIGURATION
Listen $socket
LogLevel warn
MaxJobs 0
PreserveJobHistory No
PreserveJobFiles No
DefaultAuthType None
WebInterface No
Browsing No
<Location />
    Order allow,deny
    Allow all
</Location>
<Policy default>
    <Limit All>
        Order allow,deny
        Allow all
    </Limit>
</Policy>
CONFIGURATION
    cat >"$folder/cups-files.conf" <<CONFIGURATION
ServerRoot $folder/etc
ServerBin $folder/bin
RequestRoot $folder/spool
TempDir $folder/tmp
CacheDir $folder/cache
StateDir $folder/state
AccessLog $folder/access_log
ErrorLog $folder/error_log
PageLog $folder/page_log
SystemGroup root
ConfigFilePerm 0644
CONFIGURATION
}

# The driver's backend writes to the home of the job's user and nowhere else, so the last step is
# one of our own. It makes the PDF as that one does, by Ghostscript, and shows it when it is whole.
write_backend() {
    local part
    mkdir -p "$folder/bin/backend"
    for part in /usr/lib/cups/*; do
        [[ ${part##*/} == backend ]] || ln -s "$part" "$folder/bin/"
    done
    cat >"$folder/bin/backend/tests-pdf" <<'BACKEND'
#!/bin/sh
[ $# -ge 5 ] || { echo 'file tests-pdf "Unknown" "PDF files of tests"'; exit 0; }
to=${DEVICE_URI#*:}/$1-$PRINTER
[ $# -lt 6 ] || exec <"$6"
gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=pdfwrite -sOutputFile="$to.part" - >&2 || exit 1
printf '%s\n%s\n%s\n' "$3" "$4" "$5" >"$to.txt"
mv "$to.part" "$to.pdf"
BACKEND
    chmod 755 "$folder/bin/backend/tests-pdf"
}

write_fine_description() {
    sed \
        -e 's|^\*DefaultPageSize: .*|*DefaultPageSize: Letter|' \
        -e 's|^\*DefaultPageRegion: .*|*DefaultPageRegion: Letter|' \
        -e 's|^\*DefaultImageableArea: .*|*DefaultImageableArea: Letter|' \
        -e 's|^\*DefaultPaperDimension: .*|*DefaultPaperDimension: Letter|' \
        -e 's|^\*DefaultResolution: .*|*DefaultResolution: 600dpi|' \
        -e 's|^\(\*ImageableArea Letter/.*: \).*|\1"18 36 585 774"|' "$driver"
}

await_socket() {
    local tries
    for ((tries = 0; tries < 300; ++tries)); do
        [[ $(lpstat -r 2>/dev/null) != "scheduler is running" ]] || return 0
        kill -0 "$1" 2>/dev/null || die "the spooler ended: $(tail -n1 "$folder/error_log")"
        sleep 0.1
    done
    die "the spooler did not come up"
}

start() {
    local pid
    [[ -r $driver ]] || die "the package printer-driver-cups-pdf is missing"
    command -v cupsd >/dev/null || die "the package cups is missing"
    rm -rf "$folder"
    mkdir -p "$folder"/{etc/ppd,etc/ssl,spool,tmp,cache,state,out}
    # The spooler runs its filters as another user.
    chmod 1777 "$folder"/{tmp,out}
    runuser -u lp -- test -x "$folder" || die "the user lp cannot enter $folder"
    write_configuration
    write_backend
    write_fine_description >"$folder/fine.ppd"
    cupsd -f -c "$folder/cupsd.conf" -s "$folder/cups-files.conf" \
        >"$folder/cupsd.log" 2>&1 </dev/null &
    pid=$!
    echo "$pid" >"$folder/pid"
    await_socket "$pid"
    {
        lpadmin -p PDF -E -v "tests-pdf:$folder/out" -P "$driver"
        lpadmin -p Fine -E -v "tests-pdf:$folder/out" -P "$folder/fine.ppd"
        lpadmin -d PDF
    } 2>"$folder/lpadmin.log" || {
        end
        die "no queue could be made: $(tail -n1 "$folder/lpadmin.log")"
    }
    echo "$socket"
}

end() {
    local pid
    [[ -r $folder/pid ]] || return 0
    pid=$(<"$folder/pid")
    rm -f "$folder/pid"
    kill "$pid" 2>/dev/null || true
    while kill -0 "$pid" 2>/dev/null; do
        sleep 0.1
    done
}

[[ $# -eq 2 ]] || die "usage: cups.sh start | end FOLDER"
folder=$(realpath -m "$2")
socket=$folder/socket
export CUPS_SERVER=$socket
case $1 in
    start) start ;;
    end) end ;;
    *) die "usage: cups.sh start | end FOLDER" ;;
esac
