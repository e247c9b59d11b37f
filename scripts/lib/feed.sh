# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# The signed update feed: an RSS file with an item for each version, and its signature in a comment
# at the very end. To be sourced after signing.sh.

xml_text() {
    sed -e 's/&/\&amp;/g' -e 's/</\&lt;/g' -e 's/>/\&gt;/g' -e 's/"/\&quot;/g'
}

# empty_feed SITE
empty_feed() {
    local site
    site=$(xml_text <<<"$1")
    cat <<TEXT
<?xml version="1.0" encoding="utf-8"?>
<!-- sparkle-sign-warning: This feed is signed. A change by hand makes the signature at its end wrong, and then the
program takes no notice of the feed any more. -->
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
  <channel>
    <title>Pallistrom</title>
    <link>$site</link>
    <description>New versions of Pallistrom</description>
    <language>en</language>
  </channel>
</rss>
TEXT
}

# feed_enclosure SITE ARCHIVE: the archive's name says for which machine it is.
feed_enclosure() {
    local site archive=$2 name machine signature
    site=$(xml_text <<<"$1")
    # On a line of its own, or nobody would hear of a failure.
    signature=$(signature_of "$archive")
    name=$(basename "$archive")
    machine=${name##*-linux-}
    printf '      <enclosure url="%s" length="%s" type="application/x-xz" sparkle:os="linux-%s" sparkle:edSignature="%s"/>\n' \
        "$site/$name" "$(stat -L -c %s "$archive")" "${machine%.tar.xz}" "$signature"
}

# feed_item SITE VERSION ELEMENTS ARCHIVE...: notes come from standard input, ELEMENTS go in as they
# are.
feed_item() {
    local site=$1 version=$2 elements=$3 archive
    shift 3
    cat <<TEXT
    <item>
      <title>Pallistrom $version</title>
      <link>$(xml_text <<<"$site")</link>
      <pubDate>$(LC_ALL=C date --utc --date="@${SOURCE_DATE_EPOCH:-$(date +%s)}" '+%a, %d %b %Y %H:%M:%S +0000')</pubDate>
      <sparkle:version>$version</sparkle:version>
      <sparkle:shortVersionString>$version</sparkle:shortVersionString>
TEXT
    [[ -z $elements ]] || printf '%s\n' "$elements"
    printf '      <description sparkle:format="plain-text">'
    # Escaped, not in a CDATA section: that could be ended from within.
    xml_text | head -c -1
    printf '</description>\n'
    for archive in "$@"; do
        feed_enclosure "$site" "$archive"
    done
    printf '    </item>\n'
}

# unsigned_feed FILE: what is signed of a feed; fails unless it is signed with our key.
unsigned_feed() {
    local file=$1 signature length part
    signature=$(sed -nE '/^<!-- sparkle-signatures:$/,$ s/^edSignature: //p' "$file")
    length=$(sed -nE '/^<!-- sparkle-signatures:$/,$ s/^length: ([0-9]+)$/\1/p' "$file")
    part=$(mktemp)
    head -c "${length:-0}" "$file" >"$part"
    if [[ -z $signature ]] || ! is_signature_of "$part" "$signature"; then
        rm "$part"
        return 1
    fi
    cat "$part"
    rm "$part"
}

# signed_feed FILE: the feed with its signature.
signed_feed() {
    local signature
    signature=$(signature_of "$1")
    cat "$1"
    printf '<!-- sparkle-signatures:\nedSignature: %s\nlength: %s\n-->\n' "$signature" "$(stat -c %s "$1")"
}

# add_item FEED ITEM: the feed with an item before all others.
add_item() {
    awk -v itemFile="$2" '
        !isIn && /^ *(<item>|<\/channel>)/ {
            while ((getline line <itemFile) > 0) print line
            isIn = 1
        }
        { print }
    ' "$1"
}

# released_feed SITE VERSION ELEMENTS OLD-FEED ARCHIVE...: the signed feed in which a release stands
# before those of an old feed, which may be empty: no file's name. Notes come from standard input.
released_feed() {
    local site=$1 version=$2 elements=$3 oldFeed=$4 scratch
    shift 4
    scratch=$(mktemp -d)
    if [[ -n $oldFeed ]]; then
        unsigned_feed "$oldFeed" >"$scratch/before" || refuse "$oldFeed is not signed with this key"
        ! grep -Fq "<sparkle:version>$version</sparkle:version>" "$scratch/before" ||
            refuse "$oldFeed has version $version already"
    else
        empty_feed "$site" >"$scratch/before"
    fi
    feed_item "$site" "$version" "$elements" "$@" >"$scratch/item"
    add_item "$scratch/before" "$scratch/item" >"$scratch/after"
    signed_feed "$scratch/after"
    rm -r "$scratch"
}
