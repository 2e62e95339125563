"""How the reference is built. scripts/docs.sh does it: it adds the pages that are made from the headers."""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent / "_ext"))

project = "orbs"
release = version = "5.2"
html_title = "orbs"
extensions = ["myst_parser", "links", "furo_whole"]
exclude_patterns = ["_ext", "pictures", "examples"]
root_doc = "index"

primary_domain = "c"
highlight_language = "c"
toc_object_entries = False
smartquotes = False
myst_enable_extensions = ["deflist"]
myst_heading_anchors = 3

html_theme = "furo"
html_static_path = ["_static"]
html_css_files = ["orbs.css"]
html_search_scorer = str(pathlib.Path(__file__).parent / "_ext/search.js")
html_copy_source = False
html_show_sphinx = False
html_show_copyright = False
html_theme_options = {"sidebar_hide_name": False}
pygments_style = "tango"
pygments_dark_style = "monokai"
