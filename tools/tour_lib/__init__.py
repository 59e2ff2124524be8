"""What the tour is made of: a virtual screen, pictures of it, the running game, its data files."""
