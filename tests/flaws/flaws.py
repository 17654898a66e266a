"""All flaws: small ones as programs write them, one rule each."""

import flaws_of_content  # noqa: F401  they register themselves
import flaws_of_entities  # noqa: F401
import flaws_of_handles  # noqa: F401
import flaws_of_lines  # noqa: F401
import flaws_of_structure  # noqa: F401
import flaws_of_values  # noqa: F401
from flaw import MAY, NONE, Flawed, flawed_files  # noqa: F401
