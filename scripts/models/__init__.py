"""Makes models of the document for languages of hosts; see ../make_models.py."""
