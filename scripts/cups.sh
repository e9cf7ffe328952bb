#!/usr/bin/env bash
# Runs a print spooler for tests, beside any that this machine has. Its configuration, queues, jobs
# and socket are in one folder.
#
# Each document that it prints becomes FOLDER/out/JOB-QUEUE.pdf. The file JOB-QUEUE.txt beside it
# has four lines: the title, the number of copies, the options, the number of pages. While the
# folder FOLDER/out/pictures exists, each page also becomes a picture of 96 dots per inch,
# JOB-QUEUE-PAGE.pgm. The spooler throws away a document whose title begins with "unread".
#
# Usage: cups.sh [--stoppable] FOLDER
# Prints the environment variables that programs need, then an empty line when the spooler is ready.
# Ends the spooler when standard input ends.
# --stoppable: a test stops the spooler by making the file FOLDER/out/stop, and starts it again by
# removing that file. The script prints the name of the file too. The file FOLDER/out/stopped exists
# while the spooler does not run.
#
# The queues are PDF (the default: 300 dots per inch, A4) and Fine (600 dots per inch, Letter, and
# margins that the printer cannot reach).
# Needs the packages cups and printer-driver-cups-pdf, and root.
set -euo pipefail

driver=/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd
# Not every user's PATH has the folders of cupsd and lpadmin.
export PATH=$PATH:/usr/sbin:/sbin

die() {
    echo "cups.sh: $*" >&2
    exit 1
}

write_configuration() {
    cat >"$folder/cupsd.conf" <<CONFIGURATION
Listen $CUPS_SERVER
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

# The backend of the driver writes only to the home folder of the user who printed. So the queues
# use a backend of ours. It makes the PDF by Ghostscript too, and renames it to JOB-QUEUE.pdf when
# it is complete.
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
case $3 in unread*) exec cat >/dev/null ;; esac
gs -q -dBATCH -dNOPAUSE -dSAFER -dDoNumCopies -sDEVICE=pdfwrite -sOutputFile="$to.part" - >&2 ||
    exit 1
pages=$(pdfinfo "$to.part" | sed -n 's/^Pages: *//p')
[ ! -e "${to%/*}/pictures" ] || pdftoppm -r 96 -gray "$to.part" "$to"
printf '%s\n%s\n%s\n%s\n' "$3" "$4" "$5" "$pages" >"$to.text"
mv "$to.part" "$to.pdf"
mv "$to.text" "$to.txt"
BACKEND
    chmod 755 "$folder/bin/backend/tests-pdf"
}

# Wine 8 asks each printer for 300 dots per inch, and uses the printer's default only if the printer
# does not offer 300. So the description of Fine must not offer it.
write_fine_description() {
    sed \
        -e '/^\*Resolution \(150\|300\|1200\|2400\)dpi/d' \
        -e 's|^\*DefaultPageSize: .*|*DefaultPageSize: Letter|' \
        -e 's|^\*DefaultPageRegion: .*|*DefaultPageRegion: Letter|' \
        -e 's|^\*DefaultImageableArea: .*|*DefaultImageableArea: Letter|' \
        -e 's|^\*DefaultPaperDimension: .*|*DefaultPaperDimension: Letter|' \
        -e 's|^\*DefaultResolution: .*|*DefaultResolution: 600dpi|' \
        -e 's|^\(\*ImageableArea Letter/.*: \).*|\1"18 36 585 774"|' "$driver"
}

await_scheduler() {
    local tries
    for ((tries = 0; tries < 300; ++tries)); do
        [[ $(lpstat -r 2>/dev/null) != "scheduler is running" ]] || return 0
        kill -0 "$spooler" 2>/dev/null || die "the spooler ended: $(tail -n1 "$folder/error_log")"
        sleep 0.1
    done
    die "the spooler did not come up"
}

start_spooler() {
    cupsd -f -c "$folder/cupsd.conf" -s "$folder/cups-files.conf" \
        >>"$folder/cupsd.log" 2>&1 </dev/null &
    spooler=$!
    await_scheduler
}

make_queues() {
    lpadmin -p PDF -E -v "tests-pdf:$folder/out" -P "$driver" &&
        lpadmin -p Fine -E -v "tests-pdf:$folder/out" -P "$folder/fine.ppd" &&
        lpadmin -d PDF
}

start() {
    local tool
    for tool in cupsd lpadmin gs pdfinfo; do
        command -v "$tool" >/dev/null || die "$tool is missing"
    done
    [[ -r $driver ]] || die "the package printer-driver-cups-pdf is missing"
    rm -rf "$folder"
    mkdir -p "$folder"/{etc/ppd,etc/ssl,spool,tmp,cache,state,out}
    # The spooler runs its filters as another user.
    chmod 1777 "$folder"/{tmp,out}
    runuser -u lp -- test -x "$folder" || die "the user lp cannot enter $folder"
    write_configuration
    write_backend
    write_fine_description >"$folder/fine.ppd"
    start_spooler
    make_queues 2>"$folder/lpadmin.log" ||
        die "no queue could be made: $(tail -n1 "$folder/lpadmin.log")"
}

end_spooler() {
    [[ -n $spooler ]] || return 0
    kill "$spooler" && wait "$spooler" || true
    spooler=
} 2>/dev/null

end() {
    trap '' TERM INT HUP
    end_spooler
}

follow_stop_file() {
    if [[ -e $folder/out/stop && -n $spooler ]]; then
        end_spooler
        : >"$folder/out/stopped"
    elif [[ ! -e $folder/out/stop && -z $spooler ]]; then
        start_spooler
        rm "$folder/out/stopped"
    fi
}

# Wine shows this machine's files as drive Z:.
windows_path() {
    local path=Z:$1
    echo "${path//\//\\}"
}

stoppable=
[[ ${1:-} != --stoppable ]] || { stoppable=1 && shift; }
[[ $# -eq 1 ]] || die "usage: cups.sh [--stoppable] FOLDER"
folder=$(realpath -m "$1")
spooler=
export CUPS_SERVER=$folder/socket
trap end EXIT
trap 'exit 143' TERM INT HUP
start
printf 'CUPS_SERVER=%s\nQUILLMARK_PRINTED=%s\n' "$CUPS_SERVER" "$(windows_path "$folder/out")"
[[ -z $stoppable ]] || printf 'QUILLMARK_STOPS_PRINTER=%s\n' "$(windows_path "$folder/out/stop")"
echo
# Not a program: a signal must not have to wait for it. A read that is only out of time gives more
# than 128.
status=0
while ((status == 0 || (status > 128 && ${#stoppable}))); do
    status=0
    read -r ${stoppable:+-t 0.2} _ || status=$?
    [[ -z $stoppable ]] || follow_stop_file
done
