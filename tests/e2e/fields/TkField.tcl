#!/usr/bin/env wish
# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT

# A single-line text field of Tk. It speaks as FieldProtocol.h says; for one line there is nothing
# to escape but the backslash.

proc reportText {} {
    puts "text [.window.field index insert] [string map {\\ \\\\} [.window.field get]]"
}

proc setState {cursor text} {
    .window.field delete 0 end
    .window.field insert 0 [string map {\\\\ \\} $text]
    .window.field icursor [expr {$cursor < 0 ? "end" : $cursor}]
}

proc obey {line} {
    if {$line eq "quit"} {
        exit
    }
    if {[regexp {^set (-?\d+) (.*)$} $line -> cursor text]} {
        setState $cursor $text
    }
    reportText
}

proc readCommands {} {
    if {[gets stdin line] >= 0} {
        obey $line
    } elseif {[eof stdin]} {
        exit
    }
}

proc reportReady {} {
    puts ready
    bind .window.field <FocusIn> {}
}

fconfigure stdout -buffering line
fconfigure stdin -blocking 0
# A script's own window goes by the name of the script. Most programs that are made with Tk leave
# the class of their windows to it.
wm withdraw .
toplevel .window -class Tk
wm title .window "Text field"
entry .window.field -textvariable content -width 40
pack .window.field -padx 20 -pady 20
bind .window.field <FocusIn> reportReady
# Later, because the text changes while the cursor is still where it was.
trace add variable content write {apply {args {
    after cancel reportText
    after idle reportText
}}}
fileevent stdin readable readCommands
focus .window.field
