# Boot menu of the Vexa Rescue CD.

# Protection of the menu by a password; the wizard switches it on.
Set PasswordRequest=0
Set PasswordString=""
