#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Every class of the reference has an example: check_examples.py FOLDER (of Doxygen's XML)."""

import sys
import xml.etree.ElementTree as xml
from pathlib import Path


def main(folder):
    folder, without, count = Path(folder), [], 0
    for compound in xml.parse(folder / "index.xml").getroot().findall("compound"):
        if compound.get("kind") not in ("class", "struct"):
            continue
        count += 1
        described = xml.parse(folder / f"{compound.get('refid')}.xml").getroot().find("compounddef")
        if described.find("detaileddescription//programlisting") is None:
            without.append(compound.findtext("name"))
    if without or not count:
        sys.exit(f"Without an example: {', '.join(without) or 'everything'} (docs/site/examples.dox)")


main(*sys.argv[1:])
