"""Every name of the library that stands on a page as code becomes a link to its declaration, and a verb with which the
names of several members begin, such as orbsConvert, to the first of them. Parameters are no names: neither the search nor
the index of objects has them."""
import re

from docutils import nodes
from sphinx.domains.c import CDomain
from sphinx.transforms.post_transforms import SphinxPostTransform
from sphinx.util.nodes import make_refnode


class Names(CDomain):
    def get_objects(self):
        return (entry for entry in super().get_objects() if entry[2] != "functionParam")


class LinkNames(SphinxPostTransform):
    default_priority = 50

    def run(self, **_):
        env = self.env
        if not hasattr(env, "orbs_names"):
            env.orbs_names = {}
            for name, _, _, page, anchor, _ in env.get_domain("c").get_objects():
                env.orbs_names[name] = env.orbs_names[name.removeprefix("orbs")] = (page, anchor)
            for name, place in [*env.orbs_names.items()]:
                verb = re.match(r"(orbs?[A-Z0-9][A-Za-z0-9]*?)(?=_|$|\d+[a-z]+_)", name)
                if verb:
                    env.orbs_names.setdefault(verb[1], place)
            for page in env.found_docs:
                room = re.fullmatch(r"reference/(\w+)/index", page)
                if room:
                    env.orbs_names[f"orbs/{room[1]}.h"] = env.orbs_names[f"{room[1]}.h"] = (page, "")
            for page in ("accuracy", "benchmarks"):
                env.orbs_names[f"docs/{page}.md"] = (page, "")
            env.orbs_names["orbdefs.h"] = ("reference/types", "")
        for literal in list(self.document.findall(nodes.literal)):
            target = env.orbs_names.get(literal.astext().removesuffix("()"))
            if not target or isinstance(literal.parent, nodes.reference) or target[0] == env.docname:
                continue
            literal.replace_self(make_refnode(self.app.builder, env.docname, *target, literal.deepcopy()))


def setup(app):
    app.add_domain(Names, override=True)
    app.add_post_transform(LinkNames)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
