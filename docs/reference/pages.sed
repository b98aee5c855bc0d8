# How Doxygen reads a Markdown page (sed -E). It makes anchors of its own, so a link to one goes to the page, or
# nowhere; the examples lie beside the built pages, other sources do not.
s|\]\(([^():]+\.md)#[^()]*\)|](\1)|g
s|\[([^][]*)\]\(#[^()]*\)|\1|g
s#\]\((\.\./)*examples/([A-Za-z_]+\.(cpp|h))\)#](@\2)#g
s#\[([^][!]*)\]\([^@():]*(/|\.(cpp|h|json|txt|cmake|sed))\)#\1#g
s#\]\(@#](#g
