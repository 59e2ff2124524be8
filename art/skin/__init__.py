"""Draws the pictures of the Original skin."""
